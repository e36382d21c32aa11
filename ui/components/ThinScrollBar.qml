// A scroll bar that keeps out of the way.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.ScrollBar {
    id: bar

    implicitWidth: 14
    padding: 2
    // Clear of the window's edge, by which it is resized.
    rightPadding: 6
    minimumSize: 0.06
    visible: size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        radius: width / 2
        color: bar.pressed || bar.hovered ? Theme.box : Theme.lineStrong
        opacity: bar.active || bar.hovered ? 1 : 0.6
    }
}
