// What passes files between the sides.
import QtQuick
import Nookwise

Column {
    id: gutter

    required property SplitModel split

    // Files are on their way, so that the buttons cannot be pressed for now.
    signal passed(pointed: bool)

    spacing: Theme.space2

    SquareButton {
        glyph: gutter.split.leftActive ? "move" : "move-left"
        inkColor: enabled ? Theme.accent : Theme.disabledText
        text: "Move selected to the other side  ⇧⌘M"
        Accessible.name: "Move selected to the other side"
        enabled: gutter.split.canPass
        onClicked: {
            const pointed = !visualFocus
            gutter.split.moveSelected()
            gutter.passed(pointed)
        }
    }
    SquareButton {
        glyph: "copy"
        text: "Copy selected to the other side  ⌥⇧⌘M"
        Accessible.name: "Copy selected to the other side"
        enabled: gutter.split.canPass
        onClicked: {
            const pointed = !visualFocus
            gutter.split.copySelected()
            gutter.passed(pointed)
        }
    }
    Item {
        width: 1
        height: Theme.space2
    }
    SquareButton {
        glyph: "swap"
        text: "Swap sides"
        onClicked: gutter.split.swapSides()
    }
}
