// How far the reading of texts has come, where more is found as it goes on.
import QtQuick
import Nookwise

Card {
    id: card

    required property IndexingModel indexing

    implicitHeight: column.height + 2 * Theme.space4
    Accessible.role: Accessible.ProgressBar
    Accessible.name: indexing.text + ", " + Math.round(indexing.fraction * 100) + " per cent"

    Rectangle {
        id: tile

        x: Theme.space5 + 1
        anchors.verticalCenter: parent.verticalCenter
        width: 40
        height: 40
        radius: Theme.radiusButton
        color: Theme.honeyWash

        Icon {
            anchors.centerIn: parent
            glyph: "text-found"
            color: Theme.honeyText
        }
    }
    Column {
        id: column

        anchors.left: tile.right
        anchors.leftMargin: Theme.space5
        anchors.right: parent.right
        anchors.rightMargin: Theme.space5 + 1
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Label {
            width: parent.width
            weight: Font.Medium
            text: card.indexing.text
            elide: Text.ElideRight
        }
        Item {
            width: parent.width
            height: Theme.space2

            ProgressLine {
                width: parent.width
                value: card.indexing.fraction
            }
        }
        Label {
            width: parent.width
            look: Theme.caption
            color: Theme.ink3
            text: "Search works now; more results appear as this finishes. Everything is read on this Mac."
            wrapMode: Text.WordWrap
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
