// The heads of the table's columns, and the ticks of all rows at once.
import QtQuick
import Nookwise

Item {
    id: heads

    required property RenameModel rename
    required property bool narrow

    implicitHeight: 40

    TickBox {
        x: 2
        height: parent.height
        tristate: true
        checkState: heads.rename.tickState
        enabled: heads.rename.canTick
        // The state is the model's alone.
        nextCheckState: () => checkState
        Accessible.name: "Select all, " + heads.rename.tickedText
        onClicked: heads.rename.turnAll()
    }
    Label {
        x: 108
        anchors.verticalCenter: parent.verticalCenter
        look: Theme.small
        weight: Font.DemiBold
        text: "Now"
    }
    Label {
        x: heads.narrow ? 364 : 444
        anchors.verticalCenter: parent.verticalCenter
        look: Theme.small
        weight: Font.DemiBold
        text: "After"
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.lineStrong
    }
}
