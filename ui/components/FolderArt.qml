// A pile drawn as a folder, with as many cards peeking out as it has files.
import QtQuick
import Nookwise

Item {
    id: art

    required property string name
    // Files in the folder.
    required property real count
    property bool lifted: false

    property int rise: lifted ? -6 : 0

    Behavior on rise {
        NumberAnimation {
            duration: Theme.moveTime
            easing.type: Easing.OutCubic
        }
    }

    readonly property string cards: count >= 10 ? "-cards" : count >= 2 ? "-cards2" : "-cards1"

    // The software renderer draws the edges of what stands between pixels wrongly, here and everywhere.
    implicitHeight: Math.round(width * 0.8)
    Accessible.ignored: true

    Art {
        anchors.fill: parent
        drawing: "art/folder-" + art.name + "-back"
    }
    Art {
        width: parent.width
        height: parent.height
        drawing: "art/folder-" + art.name + art.cards
        visible: art.count > 0
        y: art.rise
    }
    Art {
        anchors.fill: parent
        drawing: "art/folder-" + art.name + "-front"
    }
}
