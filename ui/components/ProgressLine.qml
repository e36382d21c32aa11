// How far something has come.
import QtQuick
import Nookwise

Rectangle {
    id: line

    // 0 to 1.
    required property real value
    // Follows the value at once.
    property bool still: false

    property int filled: Math.round(width * Math.min(Math.max(value, 0), 1))

    Behavior on filled {
        enabled: !line.still

        NumberAnimation {
            duration: Theme.progressTime
        }
    }

    implicitHeight: 6
    radius: height / 2
    color: Theme.track

    Rectangle {
        height: parent.height
        radius: parent.radius
        width: line.filled
        color: Theme.accent
    }
}
