// How much of the pile is ticked, and the ticks of all at once.
import QtQuick
import Nookwise

Item {
    id: row

    required property SweepModel sweep
    required property string hint

    implicitHeight: 44

    TickBox {
        id: all

        x: 2
        height: parent.height
        tristate: true
        checkState: row.sweep.tickState
        // The state is the model's alone.
        nextCheckState: () => checkState
        Accessible.name: "Select all, " + row.sweep.tickedText.replace(" ticked", "")
        onClicked: row.sweep.tickState === Qt.Checked ? row.sweep.selectNone() : row.sweep.selectAll()
    }
    // A button that has nothing left to do hands the focus to its neighbour.
    Row {
        id: texts

        x: 44
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space1

        Label {
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            weight: Font.DemiBold
            rightPadding: 5
            text: row.sweep.tickedText
        }
        PushButton {
            id: everything

            kind: PushButton.Kind.Quiet
            size: 28
            text: "Select all"
            enabled: row.sweep.tickState !== Qt.Checked
            onClicked: {
                const reason = focusReason
                row.sweep.selectAll()
                nothing.forceActiveFocus(reason)
            }
        }
        PushButton {
            id: nothing

            kind: PushButton.Kind.Quiet
            size: 28
            text: "Select none"
            enabled: row.sweep.tickState !== Qt.Unchecked
            onClicked: {
                const reason = focusReason
                row.sweep.selectNone()
                everything.forceActiveFocus(reason)
            }
        }
    }
    Reassurance {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: row.hint !== ""
        text: row.hint
        iconSize: 16
        look: Theme.caption
        color: Theme.ink3
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
}
