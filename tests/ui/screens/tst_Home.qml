import QtQuick
import QtTest

ScreenTest {
    name: "Home"

    readonly property string prompt: "Ask for any file — “pdfs from gmail last month”, “wifi password”"
    readonly property string askPrompt: "Ask for a file — “pdfs from gmail last month”"

    function focusName() {
        return window.activeFocusItem?.Accessible.name ?? ""
    }

    function askField() {
        return search(window.contentItem, item => item.cursorPosition !== undefined && item.Accessible.name === askPrompt)
    }

    function verifyAsked(text) {
        compare(bench.section(), "ask")
        compare(bench.question(), text)
        compare(focusName(), askPrompt)
        compare(askField().text, text)
        compare(askField().cursorPosition, text.length)
    }

    function test_hasTheQuestionAtItsTop_data() {
        return [
            { tag: "wide", width: 1200, height: 760, x: 272, room: 792, cards: 178 },
            { tag: "narrow", width: 960, height: 640, x: 228, room: 608, cards: 158 }
        ]
    }

    function test_hasTheQuestionAtItsTop(data) {
        openWindow(data.width, data.height)
        bench.fillHome()
        bench.runScan()
        waitForRendering(window.contentItem)
        verifyText("Ask for any file —")
        verifyText("“pdfs from gmail last month”, “wifi password”")
        verifyText("Ctrl F")
        const field = named(prompt)
        const place = field.mapToItem(window.contentItem, 0, 0)
        compare(place.x, data.x)
        compare(place.y, 20)
        compare(field.height, 44)
        compare(field.width, data.room)
        const card = named("Large files, 700 MB, over 500 MB each")
        compare(card.mapToItem(window.contentItem, 0, 0).y, data.cards)
    }

    function test_aQuestionGoesOnWhereItIsAnswered() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        mouseClick(named(prompt))
        compare(focusName(), prompt)
        compare(bench.section(), "home")
        for (const letter of "harb")
            keyClick(letter)
        verifyAsked("harb")
        verifyText("harbour.mov")
    }

    function test_canBeAskedDuringTheFirstScan() {
        openWindow()
        bench.report("Documents", 4812, 0.4, "Reading Documents")
        verifyText("Everything is read on this Mac. You can already ask for a file.")
        mouseClick(named(prompt))
        keyClick("w")
        keyClick("i")
        verifyAsked("wi")
        verifyText("Still reading your folders…")
    }

    function test_whatIsBeingComposedIsNotLost() {
        openWindow()
        bench.runScan()
        mouseClick(named(prompt))
        bench.compose("ni", "")
        bench.compose("ni hao", "")
        compare(bench.section(), "home")
        compare(focusName(), prompt)
        verifyNoText("Ask for any file —")
        bench.compose("", "你好")
        verifyAsked("你好")
    }

    function test_composingGoesOnUntilAllIsDone() {
        openWindow()
        bench.runScan()
        mouseClick(named(prompt))
        bench.compose("ㄴ", "아")
        compare(bench.section(), "home")
        bench.compose("", "니")
        verifyAsked("아니")
    }

    function test_whatIsPastedIsAsked() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        mouseClick(named(prompt))
        window.activeFocusItem.insert(0, "harbour")
        window.activeFocusItem.textEdited()
        verifyAsked("harbour")
    }

    function test_takesTheFocusInOrder() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        verify(named("Review the piles").activeFocus)
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        compare(focusName(), prompt)
        keyClick(Qt.Key_Tab)
        verify(named("Review the piles").activeFocus)
        mouseClick(named(prompt))
        keyClick(Qt.Key_Down)
        verify(named("Review the piles").activeFocus)
    }

    function test_comesBackIntoSightWithTheFocus() {
        openWindow(960, 640)
        bench.fillHome()
        bench.runScan()
        waitForRendering(window.contentItem)
        const field = named(prompt)
        const page = search(window.contentItem, item => item.contentY !== undefined && item.contentHeight > item.height)
        page.contentY = 100
        compare(field.mapToItem(window.contentItem, 0, 0).y, -80)
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        compare(focusName(), prompt)
        compare(field.mapToItem(window.contentItem, 0, 0).y, 20)
    }

    function test_beginsAnewAfterAnEarlierQuestion() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        mouseClick(named(prompt))
        keyClick("x")
        keyClick(Qt.Key_1, Qt.ControlModifier)
        compare(bench.section(), "home")
        verifyText("Ask for any file —")
        mouseClick(named(prompt))
        keyClick("h")
        verifyAsked("h")
    }

    function test_showsTheFirstScan() {
        openWindow()
        bench.report("Desktop", 1126, 0.25, "Reading Desktop")
        bench.report("Documents", 4812, 0.4, "Reading Documents")
        verifyText("Reading your folders… ·")
        verifyText("4,812 files")
        for (const title of ["Desktop", "Documents", "Downloads", "Last opened", "Copies"])
            verifyText(title)
        verifyText("1,126 files")
        verifyText("Reading Documents")
        verifyText("Waiting")
        verifyText("Nothing is moved until you review it.")
        named("Reading Documents, 40 per cent")
        verifyNoText("Review the piles")
        verifyNoText("Just landed")
    }

    function test_pilesCannotBeOpenedDuringTheFirstScan() {
        openWindow()
        clickNamed("Large files, over 500 MB each")
        compare(bench.section(), "home")
    }

    function test_showsWhatCouldComeBack() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        verifyText("1.36 GB could come back")
        verifyText("Five piles are ready to look through. Nothing moves until you say so.")
        named("Forgotten downloads, 600 MB, untouched 90+ days")
        named("Old installers, 50 MB, apps already installed")
        named("Old screenshots, 5 MB, older than a month")
        named("Large files, 700 MB, over 500 MB each")
        named("Duplicates, 100 KB, exact copies")
        verifyText("61.27 GB free")
        verifyText("of 494.38 GB")
        verifyText("Everything else")
        verifyText("checked just now")
        verifyText("Just landed")
        named("plan copy.pdf, Desktop, 1 day ago")
    }

    function test_cardsOpenTheirPiles_data() {
        return [
            { tag: "pile", card: "Large files, 700 MB, over 500 MB each", section: "sweep", shows: "harbour.mov" },
            { tag: "copies", card: "Duplicates, 100 KB, exact copies", section: "duplicates", shows: "plan copy.pdf" }
        ]
    }

    function test_cardsOpenTheirPiles(data) {
        openWindow()
        bench.fillHome()
        bench.runScan()
        clickNamed(data.card)
        compare(bench.section(), data.section)
        tryVerify(() => findText(data.shows))
    }

    function test_reviewsWithTheKeyboard() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        verify(named("Review the piles").activeFocus)
        keyClick(Qt.Key_Return)
        compare(bench.section(), "sweep")
    }

    function test_saysWhenEverythingIsClean() {
        openWindow()
        bench.runScan()
        verifyText("Everything is clean")
        verifyText("No piles in Desktop, Documents and Downloads.")
        verifyText("nothing")
        clickNamed("Scan Again")
        verify(bench.scanning())
    }

    function test_aLaterScanKeepsTheScreen() {
        openWindow()
        bench.fillHome()
        bench.runScan()
        keyClick(Qt.Key_R, Qt.ControlModifier)
        verify(bench.scanning())
        bench.report("Documents", 7, 0.4, "Reading Documents")
        verifyText("1.36 GB could come back")
        verifyText("Reading Documents")
        verifyNoText("Five piles are ready to look through. Nothing moves until you say so.")
        bench.runScan()
        verifyText("Five piles are ready to look through. Nothing moves until you say so.")
    }

    function test_fitsTheSmallestWindow() {
        openWindow(960, 640)
        bench.fillHome()
        bench.runScan()
        waitForRendering(window.contentItem)
        const right = window.width - 28
        for (const text of ["Review the piles", "exact copies", "1 day ago"])
            verify(rightOf(findText(text)) <= right, text)
    }
}
