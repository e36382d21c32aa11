// A pile to go to: its folder, its size, its name.
import QtQuick
import Nookwise

PressButton {
    id: card

    required property string name
    required property string title
    required property string label
    required property string size
    required property real count
    property bool narrow: false
    property int artHeight: narrow ? 104 : 156
    property int artWidth: narrow ? 104 : 148
    // The folder while nothing is known yet, with the one card that slips in.
    property bool scanning: false
    property bool ghostCard: false

    readonly property PilePalette palette_: Palettes.of(scanning ? "ghost" : name)

    implicitHeight: artHeight + texts.implicitHeight + Theme.space3 + 14
    enabled: !scanning
    Accessible.name: scanning ? title + ", " + label : title + ", " + size + ", " + label

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: Theme.card

        Rectangle {
            width: parent.width
            height: card.artHeight
            radius: Theme.radiusCard
            color: card.palette_.wash
        }
        Rectangle {
            y: card.artHeight / 2
            width: parent.width
            height: card.artHeight / 2
            color: card.palette_.wash
        }
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusCard
            color: "transparent"
            border.width: Theme.hairline
            border.color: card.enabled && card.hovered ? Theme.cardHoverLine : Theme.line
        }
        FocusRing {
            around: Theme.radiusCard
            visible: card.visualFocus
        }
    }
    Item {
        anchors.fill: parent

        FolderArt {
            anchors.horizontalCenter: parent.horizontalCenter
            y: card.artHeight - height - (card.narrow ? 8 : 10)
            width: card.artWidth
            height: implicitHeight
            name: card.scanning ? "ghost" : card.name
            count: card.scanning ? (card.ghostCard ? 1 : 0) : card.count
            lifted: card.enabled && card.hovered
        }
        Column {
            id: texts

            x: card.narrow ? 11 : 15
            y: card.artHeight + Theme.space3
            width: parent.width - 2 * x

            Label {
                visible: !card.scanning
                width: parent.width
                look: card.narrow ? Theme.figureNarrow : Theme.figure
                weight: card.count === 0 ? Font.Normal : Font.DemiBold
                color: card.count === 0 ? Theme.ink2 : Theme.ink
                text: card.size
            }
            Item {
                visible: card.scanning
                width: parent.width
                height: Theme.figure.line

                Skeleton {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 72
                    height: 14
                }
            }
            Label {
                width: parent.width
                look: card.narrow ? Theme.smallTight : Theme.small
                weight: Font.DemiBold
                text: card.title
                wrapMode: Text.WordWrap
            }
            Label {
                width: parent.width
                look: Theme.caption
                color: Theme.ink3
                text: card.label
                wrapMode: Text.WordWrap
            }
        }
    }
}
