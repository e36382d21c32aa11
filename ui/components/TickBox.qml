// A check box without a label.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.CheckBox {
    id: box

    property int boxSize: 20
    property bool ring: visualFocus

    implicitWidth: 40
    implicitHeight: 40
    Accessible.role: Accessible.CheckBox

    TickMark {
        anchors.centerIn: parent
        width: box.boxSize
        height: box.boxSize
        checkState: box.checkState
        ring: box.ring
    }
}
