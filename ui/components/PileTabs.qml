// The piles as tabs; one stop for the Tab key, arrows move inside.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Row {
    id: tabs

    required property PilesModel piles
    required property bool scanning
    required property bool narrow

    // The tab with the focus, or -1: where it is not the selected one, it is still the row's only stop.
    property int roving: -1

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
            focusPolicy: (tabs.roving < 0 ? selected : index === tabs.roving) ? Qt.StrongFocus : Qt.ClickFocus
            // The focus goes with the pile, whoever chose it.
            onSelectedChanged: if (selected && tabs.roving >= 0) forceActiveFocus(Qt.OtherFocusReason)
            onActiveFocusChanged: {
                if (activeFocus)
                    tabs.roving = index
                else if (tabs.roving === index)
                    tabs.roving = -1
            }
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
