// A part of the window that moves it.
import QtQuick
import QtQuick.Window

MouseArea {
    acceptedButtons: Qt.LeftButton
    onPressed: Window.window.startSystemMove()
    onDoubleClicked: {
        if (Window.visibility === Window.Maximized)
            Window.window.showNormal()
        else
            Window.window.showMaximized()
    }
}
