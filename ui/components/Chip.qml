// A small thing to press that stands for some words.
import QtQuick
import Nookwise

PressButton {
    id: chip

    required property string glyph
    property string heading: ""
    // Pressing it takes away what it stands for.
    property bool removes: false
    // Its height: 32, or 40 with larger letters.
    property int size: 32
    property real corner: size / 2

    readonly property bool large: size >= 40

    implicitHeight: size
    implicitWidth: Math.ceil(content.implicitWidth) + leftPadding + rightPadding
    leftPadding: large ? 14 : 12
    rightPadding: removes ? large ? 12 : 10 : 16
    Accessible.name: removes ? "Remove filter " + heading + " " + text : text

    Rectangle {
        anchors.fill: parent
        radius: chip.corner
        color: chip.down ? Theme.hoverSidebar : chip.hovered ? Theme.hover : Theme.card
        border.width: Theme.hairline
        border.color: Theme.lineStrong

        Behavior on color {
            ColorAnimation {
                duration: Theme.colourTime
            }
        }
        FocusRing {
            around: chip.corner
            visible: chip.visualFocus
        }
    }
    Row {
        id: content

        x: chip.leftPadding
        anchors.verticalCenter: parent.verticalCenter

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            glyph: chip.glyph
            size: chip.large && !chip.removes ? 20 : 18
            color: Theme.accent
        }
        Item {
            width: chip.large ? Theme.space2 : 6
            height: 1
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            visible: chip.heading !== ""
            look: chip.large ? Theme.body : Theme.small
            rightPadding: chip.large ? Theme.space2 : 6
            color: Theme.ink3
            text: chip.heading
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            look: chip.large ? Theme.body : Theme.small
            weight: Font.Medium
            text: chip.text
        }
        Item {
            visible: chip.removes
            width: chip.large ? Theme.space2 : 7
            height: 1
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: chip.removes
            glyph: "close"
            size: chip.large ? 16 : 14
            color: Theme.ink3
        }
    }
}
