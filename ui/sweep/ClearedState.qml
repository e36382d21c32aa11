// Said of a pile that has just been emptied, with the piles to go on with.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: view

    required property Frame frame
    required property ClearedModel cleared

    readonly property bool last: cleared.nextTitle === ""

    function takeFocus(reason: int) {
        (last ? home : next).forceActiveFocus(reason)
    }

    onVisibleChanged: if (visible) unmeant.start()

    PressGuard {
        id: unmeant

        z: 1
    }
    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        // Optically in the middle.
        y: Math.max(0, Math.round((parent.height - height) / 2) - 36)
        width: view.frame.column

        Art {
            anchors.horizontalCenter: parent.horizontalCenter
            width: view.last ? 285 : view.frame.low ? 152 : 228
            height: view.last ? 230 : view.frame.low ? 123 : 184
            drawing: "art/nook-clean"
        }
        Item {
            width: 1
            height: view.last || !view.frame.low ? Theme.space6 : Theme.space3
        }
        Row {
            id: sentence

            readonly property TextStyle look: view.frame.narrow ? Theme.heroNarrow : Theme.hero

            anchors.horizontalCenter: parent.horizontalCenter
            Accessible.role: Accessible.Heading
            Accessible.name: view.cleared.size + view.cleared.tail

            Label {
                look: sentence.look
                color: Theme.accent
                text: view.cleared.size
            }
            Label {
                look: sentence.look
                text: view.cleared.tail
            }
        }
        Item {
            width: 1
            height: view.frame.low ? Theme.space4 : Theme.space7
        }
        Row {
            visible: !view.last
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.space4

            Repeater {
                model: view.cleared.rows

                PileCard {
                    id: card

                    required property int index
                    required property string countText

                    width: Math.min(178, Math.floor((view.frame.column - 3 * Theme.space4) / 4))
                    artHeight: view.frame.low ? 104 : 112
                    artWidth: view.frame.low ? 104 : 112
                    label: countText
                    onClicked: view.cleared.open(index)
                }
            }
        }
        Item {
            visible: !view.last
            width: 1
            height: view.frame.low ? Theme.space4 : Theme.space7
        }
        PushButton {
            id: next

            visible: !view.last
            anchors.horizontalCenter: parent.horizontalCenter
            kind: PushButton.Kind.Primary
            size: 48
            glyph: "move"
            leadsOn: true
            text: "Go on with " + view.cleared.nextTitle
            onClicked: view.cleared.open(0)
        }
        Row {
            visible: view.last
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.space2

            PushButton {
                id: home

                kind: PushButton.Kind.Primary
                glyph: "home"
                text: "Home"
                onClicked: view.cleared.openHome()
            }
            PushButton {
                glyph: "activity"
                text: "Activity"
                onClicked: view.cleared.openActivity()
            }
        }
    }
}
