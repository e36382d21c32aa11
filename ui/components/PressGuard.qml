// Takes the presses on what has just come under the pointer: they may be meant for what it replaced.
import QtQuick
import Nookwise

MouseArea {
    function start() {
        second.restart()
    }

    anchors.fill: parent
    visible: second.running

    SecondPress {
        id: second
    }
}
