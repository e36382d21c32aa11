// The newest arrivals.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Card {
    id: card

    required property Frame frame
    required property HomeModel home

    implicitHeight: list.y + list.height + Theme.space2
    Accessible.role: Accessible.List
    Accessible.name: "Just landed"

    Label {
        x: Theme.space5 + 1
        y: Theme.space4
        look: Theme.subhead
        text: "Just landed"
    }
    Column {
        id: list

        x: Theme.space5 + 1
        y: 40
        width: parent.width - 2 * x

        Repeater {
            model: card.home.justLanded

            Item {
                id: row

                required property int index
                required property string name
                required property string place
                required property string age
                required property string kindGroup
                required property string kindLabel
                required property string picture

                width: list.width
                height: card.frame.narrow ? 48 : 54
                Accessible.role: Accessible.ListItem
                Accessible.name: name + ", " + place + ", " + age

                Rectangle {
                    visible: row.index > 0
                    width: parent.width
                    height: Theme.hairline
                    color: Theme.line
                }
                FileWell {
                    id: well

                    anchors.verticalCenter: parent.verticalCenter
                    width: 40
                    height: 36
                    group: row.kindGroup
                    label: row.kindLabel
                    picture: row.picture
                }
                Column {
                    anchors.left: well.right
                    anchors.leftMargin: Theme.space3
                    anchors.right: ageLabel.left
                    anchors.rightMargin: Theme.space3
                    anchors.verticalCenter: parent.verticalCenter

                    Label {
                        id: nameLabel

                        width: parent.width
                        look: Theme.small
                        lineHeight: Theme.smallTight.line
                        weight: Font.Medium
                        text: row.name
                        elide: Text.ElideMiddle
                    }
                    Label {
                        width: parent.width
                        look: Theme.caption
                        color: Theme.ink3
                        text: row.place
                    }
                }
                Label {
                    id: ageLabel

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    look: Theme.caption
                    color: Theme.ink3
                    text: row.age
                }
                HoverHandler {
                    id: hover
                }
                Tip {
                    text: row.name
                    visible: hover.hovered && nameLabel.truncated
                }
            }
        }
    }
}
