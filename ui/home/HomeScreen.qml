// Where the window begins: what could come back.
import QtQuick
import QtQuick.Templates as T
import Nookwise

ContentScreen {
    id: screen

    required property HomeModel home
    required property PilesModel piles
    required property DiskModel disk
    required property ScanModel scan
    required property AskModel ask

    readonly property bool firstScan: scan.first
    readonly property int gap: frame.narrow ? Theme.space3 : Theme.space4

    function takeFocus(reason: int) {
        if (firstScan)
            page.forceActiveFocus(reason)
        else
            headline.takeFocus(reason)
    }

    // Goes on where questions are answered, once nothing is being composed that would be lost.
    function askTyped() {
        if (field.text !== "" && field.preeditText === "")
            ask.askFor(field.text)
    }

    // Letters begin a question.
    Keys.onPressed: event => {
        const modified = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)
        if (modified || event.text <= " " || event.text === "\x7f")
            return
        ask.askFor(event.text)
        event.accepted = true
    }

    // What had the focus while there was nothing else hands it on.
    onFirstScanChanged: if (page.activeFocus) takeFocus(Qt.OtherFocusReason)

    QuestionField {
        id: field

        x: screen.frame.margin
        y: Theme.space5 - page.contentY
        z: 1
        width: screen.frame.column - 96
        prompt: "Ask for any file —"
        example: "“pdfs from gmail last month”, “wifi password”"
        keyCap: "Ctrl F"
        onActiveFocusChanged: if (activeFocus) page.contentY = 0
        onTextEdited: screen.askTyped()
        onPreeditTextChanged: screen.askTyped()
        onCleared: clear()
        Keys.onDownPressed: screen.takeFocus(Qt.TabFocusReason)
    }
    Flickable {
        id: page

        anchors.fill: parent
        contentWidth: width
        contentHeight: column.y + column.height + Theme.space7
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ThinScrollBar {}
        Keys.onUpPressed: contentY = Math.max(0, contentY - Theme.space8)
        Keys.onDownPressed: contentY = Math.max(0, Math.min(contentHeight - height, contentY + Theme.space8))

        Column {
            id: column

            x: screen.frame.margin
            y: screen.frame.narrow ? 84 : 92
            width: screen.frame.column
            spacing: screen.gap

            HomeHeadline {
                id: headline

                width: parent.width
                frame: screen.frame
                home: screen.home
                scan: screen.scan
            }
            ScanSteps {
                visible: screen.firstScan
                width: parent.width
                scan: screen.scan
            }
            PileCards {
                topPadding: screen.firstScan ? Theme.space2 : 0
                width: parent.width
                frame: screen.frame
                piles: screen.piles
                scanning: screen.firstScan
            }
            DiskStrip {
                visible: screen.firstScan && screen.disk.known
                width: parent.width
                disk: screen.disk
            }
            Reassurance {
                visible: screen.firstScan
                text: "Nothing is moved until you review it."
            }
            Row {
                id: cards

                readonly property real diskWidth: Math.round((screen.frame.column) * 0.54)
                readonly property real tallest: Math.max(diskCard.implicitHeight, landed.implicitHeight)

                visible: !screen.firstScan
                spacing: screen.gap

                DiskCard {
                    id: diskCard

                    visible: screen.disk.known
                    width: cards.diskWidth
                    height: cards.tallest
                    frame: screen.frame
                    disk: screen.disk
                    home: screen.home
                }
                JustLandedCard {
                    id: landed

                    width: screen.frame.column - cards.diskWidth - screen.gap
                    height: cards.tallest
                    frame: screen.frame
                    home: screen.home
                }
            }
        }
    }
    DragArea {
        width: parent.width
        height: Math.max(0, column.y - page.contentY)
    }
}
