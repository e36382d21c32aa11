// A file's name and the one that is proposed.
import QtQuick
import Nookwise

Rectangle {
    id: row

    required property int index
    required property string name
    required property string newName
    required property bool renames
    required property string note
    required property bool sameName
    required property bool ticked
    required property string picture
    required property string kindGroup
    required property string kindLabel
    required property string spoken
    required property bool narrow
    required property int total
    required property bool ring

    signal turned
    signal pointed

    color: hover.hovered ? Theme.hover : renames ? Theme.paper : Theme.leftOut
    // A row that waits to be used again is not drawn, but would still be read out.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
    Accessible.role: Accessible.CheckBox
    Accessible.name: spoken
    Accessible.description: (index + 1) + " of " + total
    Accessible.checkable: renames
    Accessible.checked: ticked
    Accessible.onToggleAction: row.turned()
    Accessible.onPressAction: row.turned()

    TapHandler {
        onTapped: row.pointed()
    }
    HoverHandler {
        id: hover
    }
    TickBox {
        x: 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        enabled: row.renames
        ring: row.ring
        checkState: row.ticked ? Qt.Checked : Qt.Unchecked
        // The state is the model's alone.
        nextCheckState: () => checkState
        Accessible.ignored: true
        onClicked: row.turned()
    }
    FileWell {
        x: 46
        anchors.verticalCenter: parent.verticalCenter
        width: 48
        height: 42
        group: row.kindGroup
        label: row.kindLabel
        picture: row.picture
    }
    Label {
        id: nowLabel

        x: 108
        anchors.verticalCenter: parent.verticalCenter
        width: row.narrow ? 208 : 288
        look: Theme.small
        color: Theme.ink2
        text: row.name
        elide: Text.ElideMiddle
    }
    Icon {
        id: arrow

        anchors.left: nowLabel.right
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        glyph: row.renames ? "move" : "minus"
        color: row.renames ? Theme.accent : Theme.ink3
    }
    Label {
        id: afterLabel

        anchors.left: arrow.right
        anchors.leftMargin: 14
        anchors.right: tag.visible ? tag.left : parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        weight: !row.renames ? Font.Normal : row.ticked ? Font.DemiBold : Font.Medium
        color: row.ticked ? Theme.ink : Theme.ink2
        text: row.newName
        elide: Text.ElideMiddle
    }
    Tag {
        id: tag

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        visible: row.note !== ""
        glyph: row.sameName ? "duplicates" : "info"
        color: row.sameName ? Theme.honeyWash : Theme.disabledFill
        inkColor: row.sameName ? Theme.honeyText : Theme.ink2
        text: row.note
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    Tip {
        text: row.name + (row.renames ? "\n" + row.newName : "")
        visible: hover.hovered && (nowLabel.truncated || afterLabel.truncated)
    }
}
