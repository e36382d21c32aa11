// New names from the text inside.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

ContentScreen {
    id: screen

    required property RenameModel rename

    bar: actions

    function takeFocus(reason: int) {
        list.takeFocus(reason === Qt.TabFocusReason || reason === Qt.ShortcutFocusReason)
    }

    Keys.onEscapePressed: rename.cancel()

    RenameHeader {
        id: header

        x: screen.frame.margin
        y: screen.frame.low ? Theme.space5 : Theme.space7
        width: screen.frame.column - screen.frame.controlsWidth
        onWentBack: screen.rename.cancel()
    }
    RenameOptions {
        id: options

        anchors.top: header.bottom
        anchors.topMargin: screen.frame.low ? Theme.space4 : Theme.space5
        x: screen.frame.margin
        rename: screen.rename
    }
    RenameColumns {
        id: heads

        anchors.top: options.bottom
        anchors.topMargin: screen.frame.low ? Theme.space3 : Theme.space5
        x: screen.frame.margin
        width: screen.frame.column
        rename: screen.rename
        narrow: screen.frame.narrow
    }
    RenameList {
        id: list

        anchors.top: heads.bottom
        anchors.bottom: actions.top
        width: parent.width
        frame: screen.frame
        rename: screen.rename
    }
    ActionBar {
        id: actions

        anchors.bottom: parent.bottom
        width: parent.width
        frame: screen.frame
        glyph: "undo"
        sentence: "Taken names get “(2)”. You can undo with ⌘Z."
        caption: ""

        PushButton {
            size: 48
            text: "Cancel"
            onClicked: screen.rename.cancel()
        }
        PushButton {
            kind: PushButton.Kind.Primary
            size: 48
            glyph: "rename"
            enabled: screen.rename.canRename
            text: screen.rename.renameText
            onClicked: screen.rename.apply()
        }
    }
    Shortcut {
        sequence: "Ctrl+A"
        onActivated: screen.rename.tickAll()
    }
    Shortcut {
        sequence: "Ctrl+Shift+A"
        onActivated: screen.rename.tickNone()
    }
}
