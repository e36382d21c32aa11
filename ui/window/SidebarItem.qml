// One section in the sidebar.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.AbstractButton {
    id: item

    required property string label
    required property string glyph
    required property string count
    required property bool current
    required property bool low
    required property bool focusShown

    implicitHeight: low ? 26 : 30
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: count === "" ? label : label + ", " + count
    Accessible.selectable: true
    Accessible.selected: current

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: item.current ? Theme.card : item.hovered ? Theme.hoverSidebar : "transparent"
        border.width: item.current ? Theme.hairline : 0
        border.color: Theme.lineStrong

        Rectangle {
            visible: item.current
            anchors.verticalCenter: parent.verticalCenter
            width: 3
            height: 14
            radius: 1.5
            color: Theme.accent
        }
        FocusRing {
            anchors.margins: -Theme.strongLine
            around: Theme.radiusButton - Theme.ringGap
            visible: item.focusShown
        }
    }
    Item {
        anchors.fill: parent

        Icon {
            id: icon

            x: 10
            anchors.verticalCenter: parent.verticalCenter
            glyph: item.glyph
            size: item.low ? 18 : 20
            color: item.current ? Theme.accent : Theme.ink2
        }
        Label {
            anchors.left: icon.right
            anchors.leftMargin: 10
            anchors.right: countLabel.left
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            weight: item.current ? Font.DemiBold : Font.Medium
            color: item.current ? Theme.ink : Theme.ink2
            text: item.label
            elide: Text.ElideRight
        }
        Label {
            id: countLabel

            anchors.right: parent.right
            anchors.rightMargin: 11
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.caption
            color: Theme.ink3
            text: item.count
        }
    }
}
