// One line of a group's card: its heading, or copies side by side.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: row

    required property int index
    required property bool heading
    required property bool last
    required property string title
    required property string caption
    required property string size
    required property string trashText
    required property var copies
    required property int perLine
    required property int columns
    // The copy with the keyboard's focus, or -1.
    required property int markedCopy

    signal chosen(int copy)
    signal trashed

    readonly property int inner: Theme.space4 + Theme.hairline
    readonly property int tileGap: 10
    readonly property real pitch: (width - 2 * inner + tileGap) / perLine

    // The ring around a tile needs room above it within the line.
    readonly property int ringRoom: Theme.ringGap + Theme.strongLine

    height: heading ? 59 - ringRoom : ringRoom + 84 + (last ? Theme.space4 + Theme.space3 : tileGap - ringRoom)
    clip: true
    Accessible.role: heading ? Accessible.Heading : Accessible.Grouping
    Accessible.name: heading ? title + ", " + caption + ", " + size : title

    Card {
        // The card goes on behind the next line; only its ends are rounded.
        y: row.heading ? 0 : -2 * radius
        width: parent.width
        height: row.height + (row.heading ? 2 * radius : row.last ? 2 * radius - Theme.space3 : 4 * radius)
    }
    Item {
        visible: row.heading
        x: row.inner
        width: parent.width - 2 * row.inner
        y: 15
        height: 32

        Label {
            id: titleLabel

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width - captionLabel.implicitWidth - sizeLabel.implicitWidth - trashButton.width - 3 * row.tileGap)
            look: Theme.subhead
            text: row.title
            elide: Text.ElideMiddle
        }
        Label {
            id: captionLabel

            anchors.left: titleLabel.right
            anchors.leftMargin: row.tileGap
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            color: Theme.ink2
            text: row.caption
        }
        Label {
            id: sizeLabel

            anchors.right: trashButton.left
            anchors.rightMargin: row.tileGap
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            weight: Font.DemiBold
            text: row.size
        }
        PushButton {
            id: trashButton

            anchors.right: parent.right
            size: 32
            glyph: "trash"
            text: row.trashText
            // The list is one stop, and the Delete key does the same.
            focusPolicy: Qt.NoFocus
            Accessible.description: row.title
            onClicked: row.trashed()
        }
    }
    Row {
        visible: !row.heading
        x: row.inner
        y: row.ringRoom
        spacing: row.tileGap

        Repeater {
            model: row.columns

            CopyTile {
                required property int index

                readonly property var copy: row.copies[index] ?? null

                visible: copy !== null
                width: Math.round(row.pitch * (index + 1)) - Math.round(row.pitch * index) - row.tileGap
                place: copy?.place ?? ""
                name: copy?.name ?? ""
                age: copy?.age ?? ""
                kept: copy?.kept ?? false
                kindGroup: copy?.kindGroup ?? "other"
                kindLabel: copy?.kindLabel ?? ""
                picture: copy?.picture ?? ""
                spoken: copy?.spoken ?? ""
                marked: index === row.markedCopy
                onChosen: row.chosen(index)
            }
        }
    }
}
