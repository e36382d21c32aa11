// What hangs on the pointer while files are dragged. Drawn as a picture only.
import QtQuick
import Nookwise

Item {
    id: ghost

    required property PaneModel pane

    // Where the pointer is in the picture.
    readonly property point hotSpot: Qt.point(card.x - 9, card.y - 12)

    width: card.width + bubble.width / 2
    height: card.y + card.height + Theme.space2
    // Without a shadow: where nothing blends windows, it would become a white box.
    visible: false

    Rectangle {
        // What becomes visible while the ghost is not does not come into its picture.
        opacity: ghost.pane.selectedCount > 1 ? 1 : 0
        x: card.x + Theme.space2
        y: card.y + Theme.space2
        width: card.width
        height: card.height
        radius: card.radius
        color: Theme.sunken
        border.width: Theme.hairline
        border.color: Theme.lineStrong
    }
    Rectangle {
        id: card

        y: Math.round(bubble.height / 2)
        width: 220
        height: 44
        radius: Theme.radiusCard
        color: Theme.card
        border.width: Theme.hairline
        border.color: Theme.lineStrong

        Art {
            opacity: ghost.pane.dragsFolder ? 1 : 0
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            width: 28
            height: 24
            drawing: "art/folder-plain"
        }
        FileBadge {
            opacity: ghost.pane.dragsFolder ? 0 : 1
            x: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            width: 24
            height: 30
            group: ghost.pane.dragGroup
            label: ghost.pane.dragLabel
        }
        Label {
            x: 46
            width: parent.width - x - Theme.space5
            anchors.verticalCenter: parent.verticalCenter
            weight: Font.Medium
            text: ghost.pane.dragName
            elide: Text.ElideRight
        }
    }
    Rectangle {
        id: bubble

        x: card.width - Math.round(width / 2)
        y: card.y - Math.round(height / 2)
        width: Math.max(24, Math.ceil(count.implicitWidth) + 12)
        height: 24
        radius: height / 2
        color: Theme.accent

        Label {
            id: count

            anchors.centerIn: parent
            look: Theme.small
            weight: Font.DemiBold
            color: Theme.accentInk
            text: ghost.pane.selectedCount
        }
    }
}
