import QtQuick
import QtTest
import Nookwise

ScreenTest {
    name: "Ask"

    readonly property string prompt: "Ask for a file — “pdfs from gmail last month”"
    readonly property string invoice: "Invoice 2201 – Fernhill.pdf"
    readonly property string scan: "scan-0091.pdf"
    readonly property string kiln: "Kiln service.pdf"
    readonly property string notes: "notes <b>invoice<b>.txt"

    function openAsk(width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillAnswers()
        bench.runScan()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        compare(bench.section(), "ask")
        waitForRendering(window.contentItem)
    }

    function type(text) {
        for (const letter of text)
            keyClick(letter)
    }

    function askFor(question, width = 1200, height = 760) {
        openAsk(width, height)
        type(question)
        waitForRendering(window.contentItem)
    }

    function field() {
        return search(window.contentItem, item => item.cursorPosition !== undefined && item.Accessible.name === prompt)
    }

    function answer(name) {
        return search(window.contentItem, item => item.Accessible.role === Accessible.ListItem && item.Accessible.name === name)
    }

    function verifySelected(name) {
        verify(answer(name), name)
        verify(answer(name).Accessible.selected, name)
        verify(search(window.contentItem, item => item.Accessible.role === Accessible.Heading && item.Accessible.name === name), name)
    }

    function inside() {
        return search(window.contentItem, item => String(item.Accessible.name).startsWith("Text inside ") && item.Accessible.role === Accessible.StaticText)
    }

    function focusName() {
        return window.activeFocusItem.Accessible.name
    }

    function test_beginsWithTheFieldAndWhatCanBeAsked() {
        openAsk()
        compare(focusName(), prompt)
        verifyText("Ask for a file —")
        verifyText("“pdfs from gmail last month”")
        verifyText("Ctrl F")
        verifyText("Ask the way you’d ask a person. Nookwise understands kinds, dates, sizes and where a file came from — and reads the text inside screenshots and PDFs.")
        for (const question of ["pdfs from gmail last month", "wifi password", "invoice", "big videos"])
            named(question)
        verifyNoText("No match — but we’re close")
    }

    function test_waitsForTheFirstScan() {
        openWindow()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        bench.report("Documents", 4812, 0.4, "Reading Documents")
        type("wifi")
        verifyText("Still reading your folders…")
        verifyText("Results show up as soon as the first scan is done.")
        verifyText("Reading Documents")
        verifyText("4,812 files")
        verifyNoText("No match — but we’re close")
        compare(bench.question(), "wifi")
    }

    function test_showsAnswersToAQuestionAskedBeforeTheScan() {
        openWindow()
        bench.fillAnswers()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        type("harbour")
        bench.runScan()
        verifySelected("harbour.mov")
        compare(focusName(), prompt)
    }

    function test_answersAsOneTypes() {
        askFor("inv")
        verifyText("4 results · names and text inside files and images")
        verifyText("“inv” in name or text")
        verify(answer(scan).Accessible.description.includes("Please find our invoice for"))
        verify(answer(scan).Accessible.description.endsWith(", 2 of 4"))
        verifySelected(invoice)
        type("oice 2201")
        verifyText("1 result · names and text inside files and images")
        compare(focusName(), prompt)
        compare(bench.question(), "invoice 2201")
    }

    function test_findsWhatIsReadInside() {
        askFor("planting")
        verifySelected(scan)
        verifyText("read on this Mac")
        verifyText("Text inside")
        tryVerify(() => inside().getText(0, inside().length).includes("14 beds"))
        verify(inside().getText(0, inside().length).includes("<i>dry</i>"))
        compare(inside().Accessible.name, "Text inside " + scan)
        verify(inside().text.includes("mark"))
    }

    function test_arrowsMoveTheSelectionWhileTheFieldKeepsTheFocus() {
        askFor("invoice")
        verifySelected(invoice)
        keyClick(Qt.Key_Down)
        verifySelected(scan)
        compare(focusName(), prompt)
        keyClick(Qt.Key_Down)
        verifySelected(kiln)
        keyClick(Qt.Key_PageDown)
        verifySelected(notes)
        keyClick(Qt.Key_Down)
        verifySelected(notes)
        keyClick(Qt.Key_Up)
        verifySelected(kiln)
        keyClick(Qt.Key_PageUp)
        verifySelected(invoice)
        // These belong to the question.
        keyClick(Qt.Key_Home)
        verifySelected(invoice)
        keyClick("x")
        compare(bench.question(), "xinvoice")
    }

    function test_enterOpens() {
        askFor("invoice")
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Return)
        compare(bench.openedNames(), [scan])
        bench.holdKey(Qt.Key_Enter)
        compare(bench.openedNames(), [scan, scan])
    }

    function test_enterWithoutAnAnswerDoesNothing() {
        openAsk()
        keyClick(Qt.Key_Return)
        type("zzz")
        keyClick(Qt.Key_Return)
        compare(bench.openedNames(), [])
    }

    function test_escapeClearsTheQuestionFromAnywhere() {
        askFor("invoice")
        keyClick(Qt.Key_Escape)
        compare(bench.question(), "")
        named("wifi password")
        type("invoice")
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Escape)
        compare(bench.question(), "")
        compare(focusName(), prompt)
    }

    function test_theClearButtonClears() {
        askFor("invoice")
        clickNamed("Clear")
        compare(bench.question(), "")
        compare(field().text, "")
        compare(focusName(), prompt)
        verify(!findNamed("Clear"))
    }

    function test_tabLeadsThroughTheGroups() {
        askFor("pdfs invoice")
        const stops = []
        for (let i = 0; i < 8; ++i) {
            stops.push(focusName())
            keyClick(Qt.Key_Tab)
        }
        compare(stops, [prompt, "Remove filter Kind PDF", invoice, "Open", "Show in folder", "Minimise", "Maximise", "Close"])
        keyClick(Qt.Key_F, Qt.ControlModifier)
        keyClick(Qt.Key_Down)
        for (let i = 0; i < 3; ++i)
            keyClick(Qt.Key_Tab)
        compare(focusName(), "Text inside " + scan)
        keyClick(Qt.Key_Tab)
        compare(focusName(), "Copy text  ⇧⌘C")
        keyClick(Qt.Key_Backtab)
        compare(focusName(), "Text inside " + scan)
    }

    function test_theListIsWorkedByKeys() {
        askFor("invoice")
        keyClick(Qt.Key_Tab)
        compare(focusName(), invoice)
        verify(answer(invoice).ring)
        keyClick(Qt.Key_End)
        verifySelected(notes)
        verify(answer(notes).ring)
        keyClick(Qt.Key_Home)
        keyClick(Qt.Key_Down)
        verifySelected(scan)
        keyClick(Qt.Key_Return)
        compare(bench.openedNames(), [scan])
    }

    function test_aClickSelectsAndADoubleClickOpens() {
        askFor("invoice")
        mouseClick(answer(kiln))
        verifySelected(kiln)
        verify(!answer(kiln).ring)
        compare(bench.openedNames(), [])
        bench.setDoubleClickInterval(400)
        mouseDoubleClickSequence(answer(scan))
        verifySelected(scan)
        compare(bench.openedNames(), [scan])
    }

    function test_copiesTheText() {
        askFor("planting")
        clickNamed("Copy text  ⇧⌘C")
        verify(bench.clipboardText().startsWith("Fernhill Garden Trust."))
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Escape)
        type("thirty")
        keyClick(Qt.Key_C, Qt.ControlModifier | Qt.ShiftModifier)
        compare(bench.clipboardText(), "Invoice total 1,240.00, due within thirty days.")
    }

    function test_beginsALongTextWhereTheWordIs() {
        askFor("harbour")
        bench.setText("/home/user/Documents/harbour.mov", "a line of text\n".repeat(400) + "needle\n" + "and more\n".repeat(4000))
        keyClick(Qt.Key_Escape)
        type("needle")
        tryVerify(() => inside().text.includes("needle"))
        verifyText("The first 30,000 characters are shown. Copying takes the whole text.")
        const place = inside().positionToRectangle(400 * 15)
        const y = inside().mapToItem(window.contentItem, 0, place.y).y
        verify(y > 400 && y < 700, y)
    }

    function test_saysThatThereIsNoText() {
        askFor("harbour")
        verifyText("No text found in this file.")
        verify(!named("Copy text  ⇧⌘C").enabled)
        verify(!inside())
    }

    function test_opensAndShowsInFolder() {
        askFor("harbour")
        clickNamed("Open")
        compare(bench.openedNames(), ["harbour.mov"])
        clickNamed("Show in folder")
        compare(bench.timesRevealed(), 1)
    }

    function test_chipsLeaveFiltersOut() {
        askFor("big pdfs invoice")
        verifyText("No match — but we’re close")
        verifyText("One of these filters is hiding everything.")
        verifyNoText("Try fewer words, or part of the name.")
        clickNamed("Remove filter Size > 100 MB")
        verifyText("3 results · names and text inside files and images")
        compare(focusName(), prompt)
        clickNamed("Remove filter Kind PDF")
        verifyText("4 results · names and text inside files and images")
        compare(bench.question().trim(), "invoice")
        compare(field().text, bench.question())
    }

    function test_aChipIsPressedByKey() {
        askFor("pdfs invoice")
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Return)
        verifyText("4 results · names and text inside files and images")
        compare(focusName(), prompt)
    }

    function test_suggestsFewerWordsWithoutFilters() {
        askFor("zzz")
        verifyText("No match — but we’re close")
        verifyText("Try fewer words, or part of the name.")
        verifyNoText("Still reading text in images — try again in a minute.")
        bench.setIndexing(3, 10)
        verifyText("Still reading text in images — try again in a minute.")
        verifyNoText("Reading text in images and PDFs · 3 of 10")
    }

    function test_saysHowFarTheReadingIs_data() {
        return [{ tag: "nothing asked", question: "" }, { tag: "answered", question: "invoice" }]
    }

    function test_saysHowFarTheReadingIs(data) {
        askFor(data.question)
        const sentence = "Search works now; more results appear as this finishes. Everything is read on this Mac."
        verifyNoText(sentence)
        bench.setIndexing(1240, 3100)
        verifyText("Reading text in images and PDFs · 1,240 of 3,100")
        verifyText(sentence)
        named("Reading text in images and PDFs · 1,240 of 3,100, 40 per cent")
        bench.setIndexing(0, 0)
        verifyNoText(sentence)
    }

    function test_findsMoreAsTextIsRead() {
        askFor("invoice")
        mouseClick(answer(kiln))
        bench.setText("/home/user/Documents/harbour.mov", "an invoice at sea")
        verifyText("5 results · names and text inside files and images")
        verify(answer("harbour.mov"))
        verifySelected(kiln)
    }

    function test_suggestionsAsk() {
        openAsk()
        clickNamed("invoice")
        compare(bench.question(), "invoice")
        compare(field().text, "invoice")
        verifySelected(invoice)
        compare(focusName(), prompt)
    }

    function test_lettersOnHomeBeginAQuestion() {
        openWindow()
        bench.fillAnswers()
        bench.runScan()
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Escape)
        compare(bench.section(), "home")
        keyClick("h")
        compare(bench.section(), "ask")
        tryVerify(() => field() && field().activeFocus)
        type("arb")
        compare(bench.question(), "harb")
        verifySelected("harbour.mov")
    }

    function test_ctrlFComesBackToTheFieldAndTakesTheQuestion() {
        askFor("invoice")
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_F, Qt.ControlModifier)
        compare(focusName(), prompt)
        compare(field().selectedText, "invoice")
        keyClick(Qt.Key_3, Qt.ControlModifier)
        keyClick(Qt.Key_F, Qt.ControlModifier)
        compare(field().selectedText, "invoice")
        type("kiln")
        compare(bench.question(), "kiln")
    }

    function test_undoBelongsToTheQuestionWhileItIsTyped() {
        openWindow()
        bench.fillAnswers()
        bench.fillActivity(1, 1)
        bench.runScan()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        type("invoice")
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        compare(bench.changesPutBack(), 0)
        verify(bench.question() !== "invoice")
    }

    function test_takesNoMoreOfAQuestionThanCanBeLaidOut() {
        openAsk()
        field().insert(0, "חשבונית ".repeat(100000))
        field().textEdited()
        compare(field().length, 2000)
        compare(bench.question().length, 2000)
        verifyText("No match — but we’re close")
    }

    function test_namesAreNeverReadAsMarkup() {
        askFor("invoice")
        const label = search(answer(notes), item => item.markup !== undefined)
        verify(label.markup.includes("&lt;b&gt;"))
        verify(label.markup.includes("<span class=\"mark\">invoice</span>"))
    }

    function test_fitsTheSmallestWindow() {
        openAsk(960, 640)
        for (const question of ["big videos", "pdfs from gmail last month"]) {
            const chip = named(question)
            verify(rightOf(chip) <= window.width - 28, question)
            verify(chip.mapToItem(window.contentItem, 0, chip.height).y <= window.height)
        }
        type("invoice")
        bench.setIndexing(1240, 3100)
        waitForRendering(window.contentItem)
        for (const name of ["Copy text  ⇧⌘C", "Open", "Show in folder"])
            verify(rightOf(named(name)) <= window.width - 16, name)
        verify(named("Copy text  ⇧⌘C").implicitWidth <= named("Copy text  ⇧⌘C").width)
        verify(rightOf(answer(invoice)) <= window.width - 280)
    }
}
