// How far something has come.
import QtQuick
import Nookwise

Rectangle {
    id: line

    // 0 to 1.
    required property real value

    implicitHeight: 6
    radius: height / 2
    color: Theme.track

    Rectangle {
        height: parent.height
        radius: parent.radius
        width: parent.width * Math.min(Math.max(line.value, 0), 1)
        color: Theme.accent

        Behavior on width {
            NumberAnimation {
                duration: Theme.progressTime
            }
        }
    }
}
