// The context menu of files.
import QtQuick
import Nookwise

PopupMenu {
    id: view

    required property FileMenu files

    MenuEntry {
        glyph: "open"
        text: "Open"
        keys: "Enter"
        enabled: view.files.canOpen
        onTriggered: view.choose(() => view.files.open())
    }
    MenuEntry {
        glyph: "show-in-folder"
        text: "Show in folder"
        enabled: view.files.any
        onTriggered: view.choose(() => view.files.showInFolder())
    }
    MenuLine {}
    MenuEntry {
        glyph: "rename"
        text: "Rename by text inside…"
        enabled: view.files.canRename
        onTriggered: view.choose(() => view.files.renameByText())
    }
    MenuEntry {
        glyph: "copy-text"
        text: "Copy text"
        keys: "Ctrl Shift C"
        enabled: view.files.canCopyText
        onTriggered: view.choose(() => view.files.copyText())
    }
    MenuLine {}
    MenuEntry {
        glyph: "trash"
        text: "Move to Trash"
        keys: "Delete"
        enabled: view.files.any
        onTriggered: view.choose(() => view.files.moveToTrash())
    }

    property Connections watch: Connections {
        target: view.files

        function onReplaced() {
            view.close()
        }
    }
}
