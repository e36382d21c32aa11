// One file of a pile.
import QtQuick
import Nookwise

Rectangle {
    id: row

    required property int index
    required property string name
    required property string reason
    required property string place
    required property string size
    required property string kindGroup
    required property string kindLabel
    required property bool ticked
    required property string spoken
    required property bool narrow
    required property int total
    required property bool ring

    signal turned
    signal pointed
    signal hoverChanged(bool inside)

    color: hover.hovered ? Theme.hover : Theme.paper
    // A row that waits to be used again is not drawn, but would still be read out.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.checkable: true
    Accessible.checked: ticked

    TapHandler {
        onTapped: row.pointed()
    }
    HoverHandler {
        id: hover

        onHoveredChanged: row.hoverChanged(hovered)
    }
    TickBox {
        id: box

        x: 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        checkState: row.ticked ? Qt.Checked : Qt.Unchecked
        // The state is the model's alone.
        nextCheckState: () => checkState
        Accessible.name: row.spoken
        Accessible.description: (row.index + 1) + " of " + row.total
        onClicked: row.turned()
    }
    FileBadge {
        id: badge

        x: 44
        anchors.verticalCenter: parent.verticalCenter
        width: implicitWidth
        height: implicitHeight
        group: row.kindGroup
        label: row.kindLabel
    }
    Column {
        anchors.left: badge.right
        anchors.leftMargin: Theme.space3
        anchors.right: placeLabel.left
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter

        Label {
            id: nameLabel

            width: parent.width
            weight: Font.Medium
            color: row.ticked ? Theme.ink : Theme.ink2
            text: row.name
            elide: Text.ElideMiddle
        }
        Label {
            width: parent.width
            look: Theme.caption
            color: Theme.ink2
            text: row.reason
            elide: Text.ElideRight
        }
    }
    Label {
        id: placeLabel

        anchors.right: sizeLabel.left
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: row.narrow ? 136 : 168
        look: Theme.caption
        color: Theme.ink3
        text: row.place
        elide: Text.ElideMiddle
    }
    Label {
        id: sizeLabel

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: 76
        look: Theme.small
        weight: row.ticked ? Font.DemiBold : Font.Medium
        color: row.ticked ? Theme.ink : Theme.ink2
        text: row.size
        horizontalAlignment: Text.AlignRight
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    FocusRing {
        anchors.margins: Theme.ringGap
        around: Theme.radiusButton - 2 * Theme.ringGap
        visible: row.ring
    }
    Tip {
        text: row.place + "/" + row.name
        visible: hover.hovered && (nameLabel.truncated || placeLabel.truncated)
    }
}
