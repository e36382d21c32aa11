import QtQuick
import QtTest
import Nookwise

ScreenTest {
    name: "AskList"

    readonly property string prompt: "Ask for a file — “pdfs from gmail last month”"
    readonly property string fresh: "receipt, fresh.pdf"

    function askFor(question, width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillDownloads(60)
        bench.runScan()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        for (const letter of question)
            keyClick(letter)
        waitForRendering(window.contentItem)
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.pageRows !== undefined && item.activeFocusOnTab)
    }

    function row(name) {
        return search(window.contentItem, item => item.Accessible.role === Accessible.ListItem && item.Accessible.name === name)
    }

    function yOf(name): real {
        verify(row(name), name + " is not shown")
        return row(name).mapToItem(list(), 0, 0).y
    }

    function nameAt(y) {
        const item = list().itemAt(list().width / 2, list().contentY + y)
        return item ? item.name : ""
    }

    function selectedName() {
        const item = search(window.contentItem, item => item.Accessible.role === Accessible.ListItem && item.chosen === true)
        return item ? item.name : ""
    }

    function verifyInSight(name) {
        const y = yOf(name)
        verify(y >= 0 && y + list().rowHeight <= list().height, y)
    }

    function settle() {
        waitForRendering(window.contentItem)
        wait(0)
    }

    function focusName() {
        return window.activeFocusItem.Accessible.name
    }

    function field() {
        return search(window.contentItem, item => item.cursorPosition !== undefined && item.Accessible.name === prompt)
    }

    function inkFrom(item): int {
        const image = grabImage(item)
        const paper = image.pixel(image.width - 1, 0)
        for (let x = 0; x < image.width; ++x)
            for (let y = 0; y < image.height; ++y)
                if (!Qt.colorEqual(image.pixel(x, y), paper))
                    return x
        return -1
    }

    function land() {
        bench.land("/home/user/Downloads/" + fresh)
    }

    function readText() {
        bench.setText("/home/user/Downloads/receipt 1040.pdf", "three kilns")
    }

    function test_staysWhereItWasScrolledTo_data() {
        return [
            { tag: "a text is read", happens: readText, chosen: 0 },
            { tag: "a minute goes by", happens: () => bench.passMinutes(1), chosen: 0 },
            { tag: "a newer answer comes", happens: land, chosen: 0 },
            { tag: "a text is read, with a row chosen", happens: readText, chosen: 2 },
            { tag: "a newer answer comes, with a row chosen", happens: land, chosen: 2 }
        ]
    }

    function test_staysWhereItWasScrolledTo(data) {
        askFor("receipt")
        for (let i = 0; i < data.chosen; ++i)
            keyClick(Qt.Key_Down)
        list().contentY += 1010
        settle()
        const top = nameAt(0)
        const y = yOf(top)
        const place = list().contentY
        data.happens()
        settle()
        compare(nameAt(0), top)
        compare(yOf(top), y)
        if (data.happens !== land)
            compare(list().contentY, place)
    }

    function test_staysAtItsEnd() {
        askFor("receipt")
        list().positionViewAtEnd()
        settle()
        const place = list().contentY
        readText()
        bench.passMinutes(1)
        settle()
        compare(list().contentY, place)
    }

    function test_keepsTheChosenRowInItsPlace() {
        askFor("receipt")
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Down)
        const name = selectedName()
        const y = yOf(name)
        land()
        settle()
        compare(selectedName(), name)
        compare(yOf(name), y)
    }

    function test_showsTheNewestUntilARowIsChosen() {
        askFor("receipt")
        land()
        settle()
        compare(selectedName(), fresh)
        compare(nameAt(0), fresh)
        compare(yOf(fresh), 0)
    }

    function test_anotherQuestionBeginsAtTheTop() {
        askFor("receipt")
        list().contentY += 1010
        keyClick(" ")
        keyClick("1")
        settle()
        compare(list().contentY, list().originY)
    }

    function test_arrowsBringTheSelectedRowBack() {
        askFor("receipt")
        const first = selectedName()
        list().contentY += 1010
        settle()
        keyClick(Qt.Key_Up)
        settle()
        compare(selectedName(), first)
        verifyInSight(first)
    }

    function test_showsMoreAnswersWhenScrolledToTheirEnd() {
        openWindow()
        bench.fillDownloads(700)
        bench.runScan()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        for (const letter of "receipt")
            keyClick(letter)
        settle()
        bench.passMoment()
        compare(list().count, 500)
        verifyText("The newest 500 results · names and text inside files and images")
        keyClick(Qt.Key_Down)
        const chosen = selectedName()
        list().positionViewAtEnd()
        settle()
        const last = nameAt(list().height - 40)
        const y = yOf(last)
        settle()
        bench.passMoment()
        settle()
        compare(list().count, 700)
        compare(yOf(last), y)
        verifyText("700 results · names and text inside files and images")
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Down)
        compare(selectedName(), chosen)
    }

    function test_endGoesOnToTheAnswersThatCome() {
        openWindow()
        bench.fillDownloads(700)
        bench.runScan()
        keyClick(Qt.Key_F, Qt.ControlModifier)
        for (const letter of "receipt")
            keyClick(letter)
        mouseClick(row(selectedName()))
        keyClick(Qt.Key_End)
        settle()
        const last = selectedName()
        const y = yOf(last)
        bench.passMoment()
        settle()
        compare(list().count, 700)
        compare(selectedName(), last)
        compare(yOf(last), y)
        keyClick(Qt.Key_Down)
        verify(selectedName() !== last)
        verifyInSight(selectedName())
    }

    function test_showsTheSelectedRowInAnotherSize() {
        askFor("receipt")
        for (let i = 0; i < 5; ++i)
            keyClick(Qt.Key_Down)
        const name = selectedName()
        window.height = 640
        window.width = 960
        tryVerify(() => list().rowHeight === 96)
        settle()
        verifyInSight(name)
    }

    function test_staysAwayFromTheSelectedRowInAnotherSize() {
        askFor("receipt")
        list().contentY += 1010
        settle()
        const place = list().contentY
        window.height = 700
        settle()
        compare(list().contentY, place)
    }

    function test_givesTheFocusToTheFieldWhenTheAnswersGo() {
        askFor("receipt")
        mouseClick(row(selectedName()))
        verify(list().activeFocus)
        bench.loseFiles()
        verifyText("No match — but we’re close")
        compare(focusName(), prompt)
        land()
        settle()
        compare(focusName(), prompt)
    }

    function test_givesTheFocusToTheFieldWhenTheChipsGo() {
        askFor("pdfs fresh")
        keyClick(Qt.Key_Tab)
        compare(focusName(), "Remove filter Kind PDF")
        land()
        verify(row(fresh))
        compare(focusName(), prompt)
    }

    function test_lettersTypedInTheListBelongToTheQuestion() {
        askFor("receipt")
        mouseClick(row(selectedName()))
        keyClick(" ")
        compare(focusName(), prompt)
        mouseClick(row(selectedName()))
        keyClick("q")
        compare(bench.question(), "receipt q")
        keyClick(Qt.Key_Backspace)
        keyClick(Qt.Key_Backspace)
        mouseClick(row(selectedName()))
        keyClick(Qt.Key_Backspace)
        compare(bench.question(), "receip")
        compare(focusName(), prompt)
        mouseClick(row(selectedName()))
        keyClick(Qt.Key_X, Qt.AltModifier)
        compare(bench.question(), "receip")
        verify(list().activeFocus)
    }

    function test_anErasedCharacterGoesWhole() {
        askFor("receipt")
        field().insert(field().length, "\u{1F4C4}")
        field().textEdited()
        bench.land("/home/user/Downloads/receipt\u{1F4C4}")
        mouseClick(row("receipt\u{1F4C4}"))
        keyClick(Qt.Key_Backspace)
        compare(bench.question(), "receipt")
    }

    function test_namesThatRunToTheLeftBeginWhereOthersDo() {
        askFor("receipt")
        const name = "חשבונית receipt"
        bench.land("/home/user/Downloads/" + name)
        settle()
        compare(selectedName(), name)
        const label = search(row(name), item => item.markup !== undefined)
        const ink = inkFrom(label)
        verify(ink >= 0 && ink < 20, ink)
        const heading = search(window.contentItem, item => item.Accessible.role === Accessible.Heading && item.text === name)
        const headingInk = inkFrom(heading)
        verify(headingInk >= 0 && headingInk < 20, headingInk)
    }

    function test_cutsTheFolderRatherThanSizeAndAge() {
        askFor("fresh", 960, 640)
        bench.land("/home/user/Documents/" + "a long folder name/".repeat(6) + fresh)
        settle()
        const figures = search(window.contentItem, item => String(item.text).startsWith(" · 1 MB · "))
        verify(figures, "size and age")
        verify(!figures.truncated)
        verify(rightOf(figures) <= window.width - 16, rightOf(figures))
    }

    function test_linesOfFiltersAreCentred() {
        askFor("big screenshots pdfs from gmail yesterday under 1 mb", 960, 640)
        const chips = []
        search(window.contentItem, item => {
            if (String(item.Accessible.name).startsWith("Remove filter "))
                chips.push(item)
            return false
        })
        const lines = [...new Set(chips.map(chip => chip.y))]
        compare(lines.length, 2)
        const middle = chips[0].parent.width / 2
        for (const y of lines) {
            const line = chips.filter(chip => chip.y === y)
            const last = line[line.length - 1]
            fuzzyCompare((line[0].x + last.x + last.width) / 2, middle, 1)
        }
    }
}
