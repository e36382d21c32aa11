// The folder that a pane shows, and the way up from it.
import QtQuick
import Nookwise

Item {
    id: header

    required property PaneModel pane

    // The way up has the focus and is about to be gone, by the pointer or not.
    signal topReached(pointed: bool)

    // With the pane's outline above it.
    implicitHeight: 54
    Accessible.ignored: true

    IconButton {
        id: up

        visible: header.pane.canGoUp
        enabled: visible
        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: 1
        glyph: "up"
        text: "Up one folder"
        onClicked: {
            const held = activeFocus
            const pointed = !visualFocus
            header.pane.goUp()
            if (held && !header.pane.canGoUp)
                header.topReached(pointed)
        }
    }
    Art {
        id: art

        x: header.pane.canGoUp ? up.x + up.width + 10 : 18
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: 1
        width: 26
        height: 22
        drawing: "art/folder-plain"
    }
    Column {
        anchors.left: art.right
        anchors.leftMargin: Theme.space2
        anchors.right: tag.visible ? tag.left : parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: 1

        Label {
            id: nameLabel

            width: parent.width
            lineHeight: 18
            weight: Font.DemiBold
            text: header.pane.name
            elide: Text.ElideMiddle
        }
        Label {
            id: placeLabel

            width: parent.width
            look: Theme.caption
            color: Theme.ink3
            text: header.pane.place
            elide: Text.ElideMiddle
        }
    }
    Tag {
        id: tag

        visible: header.pane.active
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: 1
        color: Theme.accent
        inkColor: Theme.accentInk
        glyph: "check"
        text: "Active side"
    }
    HoverHandler {
        id: hover
    }
    Tip {
        text: header.pane.place
        visible: hover.hovered && !up.hovered && (nameLabel.truncated || placeLabel.truncated)
    }
}
