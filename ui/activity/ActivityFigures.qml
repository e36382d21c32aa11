// What was freed, and what is free.
import QtQuick
import Nookwise

Item {
    id: figures

    required property Frame frame
    required property ActivityModel activity
    required property DiskModel disk

    readonly property real tileWidth: Math.floor((width - Theme.space4) / 2)

    implicitHeight: freed.y + freed.height

    FreedTile {
        id: freed

        y: Theme.space3
        width: figures.tileWidth
        height: implicitHeight
        frame: figures.frame
        activity: figures.activity
    }
    FreeTile {
        anchors.top: freed.top
        anchors.right: parent.right
        width: figures.tileWidth
        height: implicitHeight
        frame: figures.frame
        disk: figures.disk
        tall: !figures.activity.empty
    }
}
