// A test of the way to the Trash, from a pile under review.
import QtQuick
import QtTest
import Nookwise

ScreenTest {
    readonly property string question: "Move 3 downloads to the Trash?"
    readonly property string survey: "old survey.zip, 300 MB, untouched since 6 mo. ago, Downloads"
    readonly property string slides: "old slides.pdf, 200 MB, untouched since 3 mo. ago, Downloads"

    function init() {
        Theme.reducedMotion = true
    }

    function openReview(width = 1200, height = 760) {
        openWindow(width, height)
        bench.fillHome()
        bench.runScan()
        clickNamed("Forgotten downloads, 600 MB, untouched 90+ days")
        tryVerify(() => findText("Files in Downloads you haven’t opened in 90+ days"))
        waitForRendering(window.contentItem)
    }

    function ask() {
        openReview()
        clickNamed("Trash selected (3 · 600 MB)")
        tryVerify(() => findText(question))
    }

    function sheetShown(): bool {
        return findText(question) !== null
    }

    function tickBox(name) {
        return search(window.contentItem, item => item.Accessible.name === name && item.checkState !== undefined)
    }

    function list() {
        return search(window.contentItem, item => item.Accessible.role === Accessible.List && item.Accessible.name === "Forgotten downloads")
    }

    function focusName(): string {
        return window.activeFocusItem?.Accessible.name ?? ""
    }

    function currentName(): string {
        return list().currentItem.Accessible.name
    }

    function clickButton(text, from) {
        mouseClick(search(from, item => item.text === text && item.clicked !== undefined))
    }
}
