// Entries to choose from, where the pointer or the focus is.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.Menu {
    id: menu

    // What had the focus before.
    property Item before: null

    implicitWidth: Math.max(262, widest() + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: Theme.space2
    padding: 6
    modal: true
    dim: false
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    // Opens where the pointer is, with nothing highlighted.
    function openAt(item: Item, x: real, y: real) {
        const place = parent.mapFromItem(item, x, y)
        popup(parent, place.x, place.y)
    }

    // Opens below the item that has the focus, with the first entry highlighted.
    function openBelow(item: Item) {
        const place = parent.mapFromItem(item, Theme.space8, item.height - Theme.space2)
        popup(parent, place.x, place.y)
        highlightFrom(0, 1)
    }

    // Does it when the menu is gone, so that it finds the focus where it was.
    function choose(action: var) {
        close()
        action()
    }

    function widest(): real {
        let width = 0
        for (let i = 0; i < count; ++i)
            width = Math.max(width, itemAt(i).implicitWidth)
        return width
    }

    function canChoose(row: int): bool {
        return itemAt(row) instanceof MenuEntry && itemAt(row).enabled
    }

    // The first entry that can be chosen, from a row on in either direction.
    function highlightFrom(row: int, step: int) {
        for (let i = row; i >= 0 && i < count; i += step) {
            if (!canChoose(i))
                continue
            currentIndex = i
            itemAt(i).forceActiveFocus(Qt.TabFocusReason)
            return
        }
    }

    // The next entry that begins with the letter, round and round.
    function highlightLetter(letter: string) {
        for (let i = 1; i <= count; ++i) {
            const row = (currentIndex + i + count) % count
            if (!canChoose(row) || !(itemAt(row) as MenuEntry).text.toLowerCase().startsWith(letter))
                continue
            highlightFrom(row, 1)
            return
        }
    }

    function work(event: var) {
        const modified = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)
        const entry = itemAt(currentIndex) as MenuEntry
        if (event.key === Qt.Key_Home)
            highlightFrom(0, 1)
        else if (event.key === Qt.Key_End)
            highlightFrom(count - 1, -1)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            entry?.click()
        else if (!modified && event.text > " ")
            highlightLetter(event.text.toLowerCase())
        // The menu goes on to the other keys that are its own; nothing behind it hears any.
        else
            return
        event.accepted = true
    }

    onAboutToShow: before = parent.Window.activeFocusItem
    onClosed: {
        before?.forceActiveFocus(Qt.PopupFocusReason)
        before = null
    }
    onActiveFocusChanged: if (!activeFocus) close()

    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: false
        keyNavigationEnabled: false
        Keys.onPressed: event => menu.work(event)
        Window.onActiveChanged: if (!Window.active) menu.close()
    }
    background: Rectangle {
        radius: Theme.radiusCard
        color: Theme.card
        border.width: Theme.hairline
        border.color: Theme.lineStrong

        Shadow {
            z: -1
        }
    }
}
