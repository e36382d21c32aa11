// The piles as tabs; one stop for the Tab key, arrows move inside.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Row {
    id: tabs

    required property PilesModel piles
    required property bool scanning
    required property bool narrow

    spacing: narrow ? 0 : 6
    Accessible.role: Accessible.PageTabList
    Accessible.name: "Piles"

    function focusSelected(reason: int) {
        for (let i = 0; i < repeater.count; ++i) {
            const tab = repeater.itemAt(i) as PileTab
            if (tab.selected)
                tab.forceActiveFocus(reason)
        }
    }

    Repeater {
        id: repeater

        model: tabs.piles.rows

        PileTab {
            id: tab

            required property int index

            scanning: tabs.scanning
            narrow: tabs.narrow
            focusPolicy: selected ? Qt.StrongFocus : Qt.ClickFocus
            onClicked: if (!selected) tabs.piles.open(index)
            Keys.onLeftPressed: tabs.focusBeside(index, -1)
            Keys.onRightPressed: tabs.focusBeside(index, 1)
        }
    }

    function focusBeside(index: int, step: int) {
        const tab = repeater.itemAt(index + step)
        if (tab)
            tab.forceActiveFocus(Qt.TabFocusReason)
    }
}
