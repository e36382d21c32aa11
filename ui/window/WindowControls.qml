// Minimise, maximise, close.
import QtQuick
import QtQuick.Window
import Nookwise

Row {
    id: controls

    readonly property bool maximised: Window.visibility === Window.Maximized

    spacing: Theme.space1

    IconButton {
        glyph: "minimise"
        text: "Minimise"
        onClicked: Window.window.showMinimized()
    }
    IconButton {
        glyph: controls.maximised ? "restore" : "maximise"
        text: controls.maximised ? "Restore" : "Maximise"
        onClicked: controls.maximised ? Window.window.showNormal() : Window.window.showMaximized()
    }
    IconButton {
        glyph: "close"
        text: "Close"
        onClicked: Window.window.close()
    }
}
