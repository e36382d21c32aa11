// Where a question is typed.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.TextField {
    id: field

    required property string prompt
    // Follows the prompt in quieter ink.
    required property string example
    required property string keyCap

    signal cleared

    readonly property bool blank: text === "" && preeditText === ""

    // Takes a key that was pressed elsewhere, if it belongs to a question.
    function take(event: var) {
        const modified = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)
        const erases = event.key === Qt.Key_Backspace
        if (modified || (!erases && (event.text < " " || event.text === "\x7f")))
            return
        forceActiveFocus(Qt.OtherFocusReason)
        if (selectedText !== "")
            remove(selectionStart, selectionEnd)
        else if (erases)
            remove(previousCharacter(), cursorPosition)
        if (!erases)
            insert(cursorPosition, event.text)
        textEdited()
        event.accepted = true
    }

    function previousCharacter(): int {
        const last = text.charCodeAt(cursorPosition - 1)
        const halfOfTwo = last >= 0xDC00 && last <= 0xDFFF
        return Math.max(0, cursorPosition - (halfOfTwo ? 2 : 1))
    }

    implicitHeight: 44
    // Nobody asks more, and every letter of it is laid out anew with each key.
    maximumLength: 2000
    leftPadding: 47
    rightPadding: 52
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    color: Theme.ink
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    font.family: Theme.lead.family
    font.pixelSize: Theme.lead.size
    Accessible.name: prompt + " " + example

    background: Rectangle {
        radius: Theme.radiusCard
        color: Theme.card
        border.width: field.activeFocus ? Theme.strongLine : Theme.hairline
        border.color: field.activeFocus ? Theme.accent : Theme.lineStrong

        Icon {
            x: 15
            anchors.verticalCenter: parent.verticalCenter
            glyph: "ask"
        }
        Row {
            // Clear of the cursor.
            x: field.leftPadding + (field.activeFocus ? 5 : 0)
            anchors.verticalCenter: parent.verticalCenter
            visible: field.blank
            spacing: Theme.space1

            Label {
                look: Theme.lead
                color: Theme.ink2
                text: field.prompt
            }
            Label {
                look: Theme.lead
                color: Theme.ink3
                text: field.example
            }
        }
        KeyCap {
            anchors.right: parent.right
            anchors.rightMargin: 14
            anchors.verticalCenter: parent.verticalCenter
            visible: field.blank
            text: field.keyCap
        }
    }

    IconButton {
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        visible: !field.blank
        focusPolicy: Qt.NoFocus
        glyph: "close"
        text: "Clear"
        onClicked: field.cleared()
    }
}
