// The screen that answers questions.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Nookwise

ContentScreen {
    id: screen

    required property AskModel ask
    required property IndexingModel indexing
    required property ScanModel scan

    readonly property bool answered: !scan.first && ask.found

    function takeFocus(reason: int) {
        field.forceActiveFocus(reason)
        if (reason === Qt.ShortcutFocusReason)
            field.selectAll()
    }

    function clear() {
        ask.question = ""
        field.forceActiveFocus(Qt.OtherFocusReason)
    }

    function removeFilter(row: int) {
        // The button that was pressed is about to go.
        field.forceActiveFocus(Qt.OtherFocusReason)
        ask.removeFilter(row)
    }

    // What held the focus went with the answers.
    Window.onActiveFocusItemChanged: if (Window.activeFocusItem === screen) field.forceActiveFocus(Qt.OtherFocusReason)
    Keys.onEscapePressed: clear()
    Keys.onPressed: event => {
        if (!field.activeFocus)
            field.take(event)
    }

    QuestionField {
        id: field

        x: screen.frame.margin
        y: Theme.space5
        width: screen.frame.column - 96
        prompt: "Ask for a file —"
        example: "“pdfs from gmail last month”"
        keyCap: "Ctrl F"
        text: screen.ask.question
        Accessible.description: screen.ask.spokenFilters
        onTextEdited: screen.ask.question = text
        onCleared: screen.clear()
        Keys.onPressed: event => answers.work(event)
    }
    AskAnswers {
        id: answers

        anchors.top: field.bottom
        anchors.topMargin: Theme.space3
        anchors.bottom: parent.bottom
        width: parent.width
        visible: screen.answered
        enabled: visible
        frame: screen.frame
        ask: screen.ask
        indexing: screen.indexing
        onFilterPressed: row => screen.removeFilter(row)
    }
    AskBlank {
        anchors.fill: rest
        visible: !screen.scan.first && screen.ask.blank
        enabled: visible
        frame: screen.frame
        ask: screen.ask
        indexing: screen.indexing
        onChosen: field.forceActiveFocus(Qt.OtherFocusReason)
    }
    AskNoMatch {
        anchors.fill: rest
        visible: !screen.scan.first && !screen.ask.blank && !screen.ask.found
        enabled: visible
        ask: screen.ask
        indexing: screen.indexing
        onFilterPressed: row => screen.removeFilter(row)
    }
    AskWaiting {
        anchors.fill: rest
        visible: screen.scan.first
        scan: screen.scan
    }
    Item {
        id: rest

        anchors.top: field.bottom
        anchors.bottom: parent.bottom
        x: screen.frame.margin
        width: screen.frame.column
    }
}
