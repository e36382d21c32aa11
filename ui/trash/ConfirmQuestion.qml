// What the confirmation asks, and the answers.
import QtQuick
import Nookwise

Item {
    id: question

    required property TrashSheetModel request

    implicitHeight: column.height
    Accessible.role: Accessible.Dialog
    Accessible.name: request.title
    Accessible.description: request.detail

    function takeFocus() {
        trash.forceActiveFocus(Qt.TabFocusReason)
        // Where the sheet itself has given it the focus again, that was for another reason.
        trash.focusReason = Qt.TabFocusReason
    }

    Keys.onReturnPressed: event => question.confirmOnce(event)
    Keys.onEnterPressed: event => question.confirmOnce(event)

    // The key may still be held that brought the question up.
    function confirmOnce(event: var) {
        if (!event.isAutoRepeat)
            request.confirm()
    }

    Column {
        id: column

        width: parent.width
        spacing: Theme.space5

        Item {
            width: parent.width
            height: Math.max(art.height, texts.height)

            Item {
                id: art

                width: 88
                height: 70

                FolderArt {
                    anchors.fill: parent
                    visible: question.request.pile !== ""
                    // Out of sight any will do.
                    name: question.request.pile === "" ? "forgotten" : question.request.pile
                    count: question.request.count
                }
                Art {
                    anchors.fill: parent
                    visible: question.request.pile === ""
                    drawing: "art/folder-scanned-folder"
                }
            }
            Column {
                id: texts

                x: 88 + Theme.space5
                width: parent.width - x
                spacing: 6

                Label {
                    width: parent.width
                    look: Theme.sheetTitle
                    text: question.request.title
                    wrapMode: Text.WordWrap
                    Accessible.ignored: false
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                Label {
                    width: parent.width
                    color: Theme.ink2
                    text: question.request.detail
                    wrapMode: Text.WordWrap
                    Accessible.ignored: false
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
        }
        SwitchBox {
            width: parent.width
            text: question.request.switchText
            checked: question.request.dontAskAgain
            onToggled: question.request.dontAskAgain = checked
        }
        Row {
            anchors.right: parent.right
            spacing: Theme.space2

            PushButton {
                text: "Cancel"
                onClicked: question.request.cancel()
            }
            PushButton {
                id: trash

                kind: PushButton.Kind.Primary
                glyph: "trash"
                text: "Move to Trash"
                onClicked: question.request.confirm()
            }
        }
    }
}
