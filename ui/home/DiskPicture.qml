// The volume as a bar; what could come back opens into a second bar, cut into the piles.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Shapes
import Nookwise

Item {
    id: picture

    required property bool narrow
    required property DiskModel disk
    required property HomeModel home

    readonly property int barHeight: 32
    readonly property int pilesY: 84
    readonly property int pilesHeight: 44
    readonly property int gap: 2

    readonly property bool piles: !home.clean
    // Wide enough to see, never more than what is used.
    readonly property real usedWidth: Math.round(width * (disk.restFraction + disk.comesBackFraction))
    readonly property real comesBackWidth: piles ? Math.min(Math.max(Math.round(width * disk.comesBackFraction), 8), usedWidth) : 0
    readonly property real restWidth: usedWidth - comesBackWidth
    readonly property real freeWidth: width - usedWidth

    implicitHeight: piles ? legendGrid.y + legendGrid.height : barHeight
    Accessible.role: Accessible.Graphic
    Accessible.name: disk.freeText + " free of " + disk.totalText + (piles ? ", " + home.spokenBlocks : "")

    component Part: Rectangle {
        height: picture.barHeight
        radius: Theme.radiusCheck
        clip: true
    }

    Part {
        x: picture.usedWidth
        width: picture.freeWidth
        color: Theme.free
        border.width: Theme.hairline
        border.color: Theme.lineStrong

        Label {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: implicitWidth + x + 6 <= parent.width
            look: Theme.caption
            weight: Font.Medium
            color: Theme.ink2
            text: "Free"
        }
    }
    Part {
        width: Math.max(0, picture.restWidth - (picture.piles ? picture.gap : 0))
        color: Theme.used

        Label {
            id: restLabel

            x: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            visible: implicitWidth + 2 * x <= parent.width
            look: Theme.caption
            weight: Font.Medium
            color: Theme.usedText
            text: "Everything else"
        }
        Label {
            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: !picture.narrow && restLabel.implicitWidth + implicitWidth + 4 * Theme.space3 <= parent.width
            look: Theme.caption
            weight: Font.Medium
            color: Theme.usedText
            text: picture.disk.restText
        }
    }
    Rectangle {
        x: picture.restWidth
        width: picture.comesBackWidth
        height: picture.barHeight
        color: Theme.accent
    }
    Shape {
        visible: picture.piles
        width: parent.width
        height: picture.pilesY

        ShapePath {
            strokeWidth: -1
            fillColor: Theme.wash
            startX: picture.restWidth
            startY: picture.barHeight + picture.gap

            PathLine {
                x: picture.restWidth + picture.comesBackWidth
                y: picture.barHeight + picture.gap
            }
            PathLine {
                x: picture.width
                y: picture.pilesY - picture.gap
            }
            PathLine {
                x: 0
                y: picture.pilesY - picture.gap
            }
        }
    }
    Label {
        visible: picture.piles
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.horizontalCenterOffset: Math.round((picture.restWidth + picture.comesBackWidth / 2 - picture.width / 2) * 0.2)
        y: picture.pilesY - 24
        look: Theme.caption
        weight: Font.DemiBold
        color: Theme.accentPress
        text: picture.disk.comesBackText + " could come back"
    }
    Item {
        y: picture.pilesY
        visible: picture.piles

        Repeater {
            id: pileBlocks

            model: picture.home.blocks

            Rectangle {
                id: block

                required property string name
                required property string title
                required property int index
                required property real from
                required property real to

                // Whole pixels, so that no gap is wider than another.
                readonly property int end: Math.round(picture.width * to)

                readonly property bool named: nameLabel.implicitWidth + 56 <= width && width >= 100

                x: Math.round(picture.width * from)
                width: Math.max(1, end - x - (index === pileBlocks.count - 1 ? 0 : picture.gap))
                height: picture.pilesHeight
                radius: Math.min(4, width / 2)
                color: Palettes.of(name).frontBottom

                Label {
                    id: nameLabel

                    x: Theme.space3
                    anchors.verticalCenter: parent.verticalCenter
                    visible: block.named
                    look: Theme.small
                    weight: Font.DemiBold
                    color: Palettes.of(block.name).deep
                    text: block.title
                }
                Icon {
                    x: block.named ? parent.width - width - Theme.space3 : (parent.width - width) / 2
                    anchors.verticalCenter: parent.verticalCenter
                    visible: block.width >= 24
                    glyph: block.name
                    color: Palettes.of(block.name).deep
                }
            }
        }
    }
    Grid {
        id: legendGrid

        y: picture.pilesY + picture.pilesHeight + Theme.space4
        visible: picture.piles
        columns: picture.narrow ? 2 : 3
        rowSpacing: Theme.space2

        Repeater {
            model: picture.home.blocks

            Row {
                id: entry

                required property string name
                required property string legend
                required property string size

                width: Math.floor(picture.width / legendGrid.columns)
                spacing: 6

                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 10
                    height: 10
                    radius: 3
                    color: Palettes.of(entry.name).frontBottom
                }
                Label {
                    look: Theme.caption
                    color: Theme.ink2
                    text: entry.legend
                }
                Label {
                    look: Theme.caption
                    weight: Font.DemiBold
                    text: entry.size
                }
            }
        }
    }
}
