// The filters, the answers, and the one that is looked at.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: answers

    required property Frame frame
    required property AskModel ask
    required property IndexingModel indexing

    signal filterPressed(int row)

    // Keys pressed where the question is typed.
    function work(event: var) {
        if (visible)
            list.work(event)
    }

    Flow {
        id: head

        x: answers.frame.margin
        width: answers.frame.column
        spacing: Theme.space2

        Repeater {
            model: answers.ask.filters

            Chip {
                required property int index
                required property string label
                required heading

                removes: true
                text: label
                onClicked: answers.filterPressed(index)
            }
        }
        Label {
            height: 32
            leftPadding: Theme.space1
            visible: text !== ""
            look: Theme.small
            color: Theme.ink3
            text: answers.ask.moreFilters
        }
        Label {
            width: Math.min(implicitWidth, head.width)
            height: 32
            leftPadding: answers.ask.filtered ? Theme.space1 : 0
            visible: text !== ""
            look: Theme.small
            color: Theme.ink2
            text: answers.ask.wordsText
            elide: Text.ElideMiddle
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    Rectangle {
        id: line

        y: Math.max(head.height, 32) + Theme.space4
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    Label {
        id: count

        x: answers.frame.margin
        anchors.top: line.bottom
        anchors.topMargin: Theme.space3 - 2
        width: list.width - x
        look: Theme.small
        color: Theme.ink3
        text: answers.ask.countText
        elide: Text.ElideRight
        Accessible.ignored: false
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    AskList {
        id: list

        anchors.top: count.bottom
        anchors.topMargin: Theme.space1
        anchors.bottom: card.visible ? card.top : parent.bottom
        anchors.bottomMargin: card.visible ? Theme.space2 : 0
        anchors.right: panel.left
        width: panel.x
        frame: answers.frame
        ask: answers.ask
        menu: menu
    }
    FileMenuView {
        id: menu

        files: answers.ask.menu
    }
    IndexingCard {
        id: card

        x: answers.frame.margin
        anchors.bottom: parent.bottom
        anchors.bottomMargin: answers.frame.low ? Theme.space4 : Theme.space6
        width: panel.x - x - Theme.space4
        visible: answers.indexing.running
        indexing: answers.indexing
    }
    AnswerPanel {
        id: panel

        anchors.top: line.bottom
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        width: answers.frame.narrow ? 280 : 332
        frame: answers.frame
        file: answers.ask.selectedFile
    }
    Shortcut {
        sequence: "Ctrl+Shift+C"
        onActivated: answers.ask.selectedFile.copyText()
    }
}
