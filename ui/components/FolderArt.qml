// A pile drawn as a folder, with as many cards peeking out as it has files.
import QtQuick
import Nookwise

Item {
    id: art

    required property string name
    // Files in the folder.
    required property real count
    property bool lifted: false

    readonly property string cards: count >= 10 ? "-cards" : count >= 2 ? "-cards2" : "-cards1"

    implicitHeight: width * 128 / 160
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
        y: art.lifted ? -6 : 0

        Behavior on y {
            NumberAnimation {
                duration: Theme.moveTime
                easing.type: Easing.OutCubic
            }
        }
    }
    Art {
        anchors.fill: parent
        drawing: "art/folder-" + art.name + "-front"
    }
}
