// What the new names are made of.
import QtQuick
import Nookwise

Row {
    id: options

    required property RenameModel rename

    spacing: 10

    CheckChip {
        text: "Text inside · first line"
        checked: options.rename.useText
        // The state is the model's alone.
        nextCheckState: () => checkState
        onClicked: options.rename.useText = !options.rename.useText
    }
    CheckChip {
        text: "Date · 2026-10-14"
        checked: options.rename.useDate
        nextCheckState: () => checkState
        onClicked: options.rename.useDate = !options.rename.useDate
    }
    CheckChip {
        text: "lowercase-with-dashes"
        checked: options.rename.dashed
        nextCheckState: () => checkState
        onClicked: options.rename.dashed = !options.rename.dashed
    }
}
