// The answer that is looked at.
import QtQuick
import Nookwise

Rectangle {
    id: panel

    required property Frame frame
    required property AnswerModel file

    readonly property int margin: frame.narrow ? Theme.space4 : Theme.space6

    color: Theme.card
    Accessible.role: Accessible.Grouping
    Accessible.name: file.name

    Rectangle {
        width: Theme.hairline
        height: parent.height
        color: Theme.line
    }
    FileWell {
        id: preview

        x: panel.margin + 1
        y: panel.frame.low ? Theme.space4 : Theme.space5
        width: parent.width - x - panel.margin
        height: panel.frame.low ? 112 : 176
        radius: Theme.radiusCard
        border.width: 0
        // The picture's own corners are rounder.
        color: pictured && panel.file.kindGroup === "image" ? "transparent" : Theme.sunken
        group: panel.file.kindGroup
        label: panel.file.kindLabel
        picture: panel.file.picture
    }
    Column {
        id: names

        anchors.top: preview.bottom
        anchors.topMargin: 14
        x: preview.x
        width: preview.width

        Label {
            id: nameLabel

            width: parent.width
            look: Theme.subhead
            text: panel.file.name
            elide: Text.ElideMiddle
            Accessible.ignored: false
            Accessible.role: Accessible.Heading
            Accessible.name: text

            HoverHandler {
                id: hover
            }
            Tip {
                text: panel.file.name
                visible: hover.hovered && nameLabel.truncated
            }
        }
        Row {
            width: parent.width
            Accessible.role: Accessible.StaticText
            Accessible.name: panel.file.place + figures.text

            Label {
                width: Math.min(Math.ceil(implicitWidth), parent.width - figures.width)
                look: Theme.caption
                color: Theme.ink3
                text: panel.file.place
                elide: Text.ElideMiddle
            }
            Label {
                id: figures

                look: Theme.caption
                color: Theme.ink3
                text: " · " + panel.file.figures
            }
        }
    }
    Item {
        id: heading

        anchors.top: names.bottom
        anchors.topMargin: panel.frame.low ? Theme.space2 : Theme.space4
        x: preview.x
        width: preview.width
        height: 28

        Label {
            look: Theme.small
            weight: Font.DemiBold
            text: "Text inside"
        }
        Reassurance {
            anchors.right: parent.right
            height: Theme.small.line
            text: "read on this Mac"
            iconSize: 16
            look: Theme.caption
            color: Theme.ink3
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: Theme.hairline
            color: Theme.line
        }
    }
    InsideText {
        anchors.top: heading.bottom
        anchors.bottom: cut.visible ? cut.top : buttons.top
        anchors.bottomMargin: cut.visible ? Theme.space2 : Theme.space3
        x: preview.x - inset
        width: panel.width - x - Theme.space2
        room: preview.width
        visible: panel.file.hasText
        enabled: visible
        file: panel.file
    }
    Column {
        anchors.centerIn: absent
        visible: !panel.file.hasText
        spacing: Theme.space4

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            glyph: "text"
            size: 28
            color: Theme.ink3
        }
        Label {
            look: Theme.small
            color: Theme.ink2
            text: "No text found in this file."
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    Item {
        id: absent

        anchors.top: heading.bottom
        anchors.bottom: buttons.top
        x: preview.x
        width: preview.width
    }
    Label {
        id: cut

        anchors.bottom: buttons.top
        anchors.bottomMargin: Theme.space3
        x: preview.x
        width: preview.width
        visible: panel.file.hasText && text !== ""
        look: Theme.caption
        color: Theme.ink3
        text: panel.file.cutText
        wrapMode: Text.WordWrap
        Accessible.ignored: false
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Row {
        id: buttons

        anchors.bottom: parent.bottom
        anchors.bottomMargin: panel.frame.low ? Theme.space4 : Theme.space5
        x: preview.x
        width: preview.width
        spacing: Theme.space2

        PushButton {
            width: parent.width - 2 * (open.width + parent.spacing)
            horizontalPadding: Theme.space3
            kind: PushButton.Kind.Primary
            glyph: panel.frame.narrow ? "" : "copy-text"
            enabled: panel.file.hasText
            text: "Copy text  ⇧⌘C"
            onClicked: panel.file.copyText()
        }
        SquareButton {
            id: open

            glyph: "open"
            text: "Open"
            onClicked: panel.file.open()
        }
        SquareButton {
            glyph: "show-in-folder"
            text: "Show in folder"
            onClicked: panel.file.showInFolder()
        }
    }
}
