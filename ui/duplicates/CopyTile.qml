// One of several identical files.
import QtQuick
import Nookwise

Rectangle {
    id: tile

    required property string place
    required property string name
    required property string age
    required property bool kept
    required property string kindGroup
    required property string kindLabel
    required property string picture
    required property string spoken
    required property bool marked

    signal chosen

    readonly property bool pointed: hover.hovered && !kept

    height: 84
    radius: Theme.radiusCard
    color: kept ? Theme.wash : hover.hovered ? Theme.hover : Theme.card
    border.width: kept ? Theme.strongLine : Theme.hairline
    border.color: kept ? Theme.accent : Theme.lineStrong
    Accessible.role: Accessible.RadioButton
    Accessible.name: spoken
    Accessible.checkable: true
    Accessible.checked: kept
    Accessible.onPressAction: chosen()
    Accessible.onToggleAction: chosen()

    TapHandler {
        onTapped: tile.chosen()
    }
    RadioMark {
        id: mark

        x: 14
        anchors.verticalCenter: parent.verticalCenter
        chosen: tile.kept
    }
    FileWell {
        id: well

        anchors.left: mark.right
        anchors.leftMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: 56
        height: 56
        group: tile.kindGroup
        label: tile.kindLabel
        picture: tile.picture
    }
    Column {
        anchors.left: well.right
        anchors.leftMargin: Theme.space3
        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter

        Label {
            id: placeLabel

            width: parent.width
            look: Theme.small
            lineHeight: Theme.smallTight.line
            weight: Font.Medium
            text: tile.place
            elide: Text.ElideMiddle
        }
        Label {
            id: nameLabel

            width: parent.width
            look: Theme.caption
            color: Theme.ink2
            text: tile.name
            elide: Text.ElideMiddle
        }
        Item {
            width: 1
            height: Theme.space1
        }
        Row {
            spacing: Theme.space2

            Tag {
                text: tile.kept ? "Kept" : tile.pointed || tile.marked ? "Keep this one" : "Extra"
                glyph: tile.kept ? "check" : ""
                color: tile.kept ? Theme.accent : Theme.sunken
                inkColor: tile.kept ? Theme.accentInk : Theme.ink2
            }
            Label {
                anchors.verticalCenter: parent.verticalCenter
                look: Theme.caption
                color: Theme.ink3
                text: tile.age
            }
        }
    }
    FocusRing {
        around: Theme.radiusCard
        visible: tile.marked
    }
    HoverHandler {
        id: hover
    }
    Tip {
        text: tile.place + "/" + tile.name
        visible: hover.hovered && (nameLabel.truncated || placeLabel.truncated)
    }
}
