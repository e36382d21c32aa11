// What came back this month.
import QtQuick
import Nookwise

Card {
    id: tile

    required property Frame frame
    required property ActivityModel activity

    implicitHeight: activity.empty ? 100 : 124

    Label {
        id: caption

        x: Theme.space5 + Theme.hairline
        y: 19
        look: Theme.small
        color: Theme.ink2
        text: "Freed this month"
    }
    Label {
        id: figure

        x: caption.x
        y: 41
        look: tile.frame.narrow ? Theme.heroNarrow : Theme.hero
        color: tile.activity.freedNothing ? Theme.ink2 : Theme.ink
        text: tile.activity.freedText
        Accessible.ignored: false
        Accessible.role: Accessible.StaticText
        Accessible.name: caption.text + ", " + text
    }
    FreedBars {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        y: 21
        width: implicitWidth
        visible: !tile.activity.empty
        narrow: tile.frame.narrow
        room: tile.width - figure.x - figure.implicitWidth - 2 * Theme.space6
        activity: tile.activity
    }
}
