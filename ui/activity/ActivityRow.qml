// One change, under the heading of its day where it is the first of it.
import QtQuick
import Nookwise

Item {
    id: row

    required property int index
    required property string day
    required property bool last
    required property string title
    required property string facts
    required property string names
    required property string more
    required property string size
    required property bool restored
    required property string pile
    required property string kind
    required property string spoken
    // Has the keyboard's focus.
    required property bool marked

    signal putBack
    signal pointed

    readonly property int headingHeight: day === "" ? 0 : 48
    readonly property int inner: Theme.space4 + Theme.hairline

    height: headingHeight + entry.height + (last ? Theme.hairline : 0)
    Accessible.role: Accessible.ListItem
    Accessible.name: spoken

    Label {
        y: Theme.space5
        width: parent.width
        visible: row.day !== ""
        look: Theme.subhead
        text: row.day
        elide: Text.ElideRight
        Accessible.ignored: row.day === ""
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    // The card goes on behind the rows beside this one; only its ends are rounded.
    Item {
        y: row.headingHeight
        width: parent.width
        height: parent.height - y
        clip: true

        Card {
            y: row.day !== "" ? 0 : -2 * radius
            width: parent.width
            height: parent.height - y + (row.last ? 0 : 2 * radius)
        }
    }
    Item {
        id: entry

        y: row.headingHeight
        width: parent.width
        height: 64

        Rectangle {
            visible: row.day === ""
            width: parent.width
            height: Theme.hairline
            color: Theme.line
        }
        TapHandler {
            onTapped: row.pointed()
        }
        ActivityPicture {
            id: picture

            x: row.inner
            anchors.verticalCenter: parent.verticalCenter
            pile: row.pile
            kind: row.kind
        }
        Column {
            anchors.left: picture.right
            anchors.leftMargin: 14
            anchors.right: sizeLabel.left
            anchors.rightMargin: Theme.space4
            anchors.verticalCenter: parent.verticalCenter

            Item {
                width: parent.width
                height: titleLabel.height

                Label {
                    id: titleLabel

                    width: Math.min(implicitWidth, parent.width)
                    weight: row.restored ? Font.Medium : Font.DemiBold
                    color: row.restored ? Theme.ink2 : Theme.ink
                    text: row.title
                    elide: Text.ElideRight
                }
                Label {
                    anchors.left: titleLabel.right
                    anchors.leftMargin: 10
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    look: Theme.caption
                    color: Theme.ink3
                    text: row.facts
                    elide: Text.ElideRight
                }
            }
            Row {
                width: parent.width
                spacing: 3

                Label {
                    id: namesLabel

                    width: Math.min(implicitWidth, parent.width - (moreLabel.text === "" ? 0 : moreLabel.width + parent.spacing))
                    look: Theme.caption
                    color: Theme.ink2
                    text: row.names
                    elide: Text.ElideMiddle
                }
                Label {
                    id: moreLabel

                    look: Theme.caption
                    color: Theme.ink2
                    text: row.more
                }
            }
        }
        Label {
            id: sizeLabel

            anchors.right: result.left
            anchors.rightMargin: 23
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            weight: row.restored ? Font.Medium : Font.DemiBold
            color: row.restored ? Theme.ink2 : Theme.ink
            text: row.size
        }
        Item {
            id: result

            anchors.right: parent.right
            anchors.rightMargin: row.inner
            anchors.verticalCenter: parent.verticalCenter
            width: button.implicitWidth
            height: button.implicitHeight

            PushButton {
                id: button

                visible: !row.restored
                size: 32
                glyph: "undo"
                text: "Put back"
                // The list is one stop, and its Space key does the same.
                focusPolicy: Qt.NoFocus
                Accessible.name: text + ", " + row.title
                onClicked: row.putBack()
            }
            Row {
                anchors.right: parent.right
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                visible: row.restored
                spacing: 7

                Icon {
                    anchors.verticalCenter: parent.verticalCenter
                    glyph: "check-circle"
                    size: 18
                }
                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    look: Theme.small
                    color: Theme.ink2
                    text: "Is back"
                }
            }
            FocusRing {
                visible: row.marked
            }
        }
    }
    Tip {
        text: row.names
        visible: hover.hovered && namesLabel.truncated
    }
    HoverHandler {
        id: hover
    }
}
