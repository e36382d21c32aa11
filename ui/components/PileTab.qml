// A pile in the row of tabs.
import QtQuick
import Nookwise

PressButton {
    id: tab

    required property string name
    required property string title
    required property string size
    required property bool selected
    required property bool scanning
    required property bool narrow

    readonly property PilePalette palette_: Palettes.of(name)

    implicitWidth: Math.ceil(row.implicitWidth) + 2 * (narrow ? 7 : 11)
    implicitHeight: 48
    Accessible.role: Accessible.PageTab
    Accessible.name: scanning ? title : title + ", " + size
    Accessible.selectable: true
    Accessible.selected: selected

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: tab.selected ? tab.palette_.wash : tab.hovered ? Theme.hover : "transparent"
        border.width: tab.selected ? Theme.hairline : 0
        border.color: tab.palette_.badge

        FocusRing {
            around: Theme.radiusCard
            visible: tab.visualFocus
        }
    }
    Row {
        id: row

        anchors.centerIn: parent
        spacing: tab.narrow ? 5 : Theme.space2

        Badge {
            anchors.verticalCenter: parent.verticalCenter
            name: tab.name
            size: tab.narrow ? 20 : 28
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter

            Label {
                look: tab.narrow ? Theme.caption : Theme.small
                lineHeight: Theme.caption.line
                weight: tab.selected ? Font.DemiBold : Font.Medium
                color: tab.selected ? Theme.ink : Theme.ink2
                text: tab.title
            }
            Label {
                visible: !tab.scanning
                look: Theme.caption
                color: Theme.ink3
                text: tab.size
            }
            Item {
                visible: tab.scanning
                width: 44
                height: Theme.caption.line

                Skeleton {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width
                    height: 8
                    color: Theme.track
                }
            }
        }
    }
}
