// One file or folder of a pane.
import QtQuick
import Nookwise

Item {
    id: row

    required property int index
    required property string name
    required property string age
    required property string size
    required property bool folder
    required property string kindGroup
    required property string kindLabel
    required property bool selected
    required property string spoken
    required property bool narrow
    required property int total
    required property bool ring
    // What is dragged would be put into this folder.
    required property bool target

    signal chosen

    // A row that waits to be used again is not drawn, but would still be read out.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.description: (index + 1) + " of " + total
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.onPressAction: chosen()

    HoverHandler {
        id: hover
    }
    Rectangle {
        id: ground

        x: 6
        width: parent.width - 12
        height: parent.height
        radius: Theme.radiusButton
        color: row.selected || row.target ? Theme.wash : hover.hovered ? Theme.hover : Theme.card

        Rectangle {
            visible: row.selected
            anchors.verticalCenter: parent.verticalCenter
            width: 3
            height: 20
            radius: 1.5
            color: Theme.accent
        }
        DashedOutline {
            anchors.fill: parent
            visible: row.target
            color: Theme.accent
            radius: Theme.radiusButton
        }
        FocusRing {
            anchors.margins: Theme.ringGap
            around: Theme.radiusButton - 2 * Theme.ringGap
            visible: row.ring
        }
    }
    Art {
        visible: row.folder
        x: 16
        anchors.verticalCenter: parent.verticalCenter
        width: 28
        height: 24
        drawing: "art/folder-plain"
    }
    FileBadge {
        visible: !row.folder
        x: 18
        anchors.verticalCenter: parent.verticalCenter
        width: 24
        height: 30
        group: row.kindGroup
        label: row.kindLabel
    }
    Label {
        id: nameLabel

        anchors.left: parent.left
        anchors.leftMargin: 54
        anchors.right: row.narrow ? sizeLabel.left : ageLabel.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        weight: Font.Medium
        text: row.name
        elide: Text.ElideMiddle
    }
    Label {
        id: ageLabel

        anchors.right: sizeLabel.left
        anchors.verticalCenter: parent.verticalCenter
        visible: !row.narrow
        look: Theme.small
        color: Theme.ink3
        text: row.age
    }
    Label {
        id: sizeLabel

        anchors.right: parent.right
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        width: 76
        look: Theme.small
        weight: Font.DemiBold
        text: row.size
        horizontalAlignment: Text.AlignRight
    }
    Icon {
        visible: row.folder
        anchors.right: parent.right
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        glyph: "chevron-right"
        size: 16
    }
    Tip {
        text: row.name
        visible: hover.hovered && nameLabel.truncated
    }
}
