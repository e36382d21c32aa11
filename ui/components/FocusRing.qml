// The ring around what has the keyboard's focus.
import QtQuick
import Nookwise

Rectangle {
    property real around: Theme.radiusButton

    anchors.fill: parent
    anchors.margins: -(Theme.ringGap + Theme.strongLine)
    radius: around + Theme.ringGap + Theme.strongLine
    color: "transparent"
    border.width: Theme.strongLine
    border.color: Theme.accent
}
