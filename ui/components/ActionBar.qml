// The foot of a working screen: what the action would do.
import QtQuick
import Nookwise

Rectangle {
    id: bar

    required property Frame frame
    required property string sentence
    required property string caption
    // Of a sentence that is only a note.
    property string glyph: ""
    // The primary one last.
    default property alias buttons: row.data
    readonly property bool holdsFocus: Array.from(row.children).some(button => button.activeFocus)

    implicitHeight: frame.low ? 72 : 80
    color: Theme.card
    Accessible.role: Accessible.StatusBar
    Accessible.name: sentence + (caption === "" ? "" : ", " + caption)

    // False when nothing here can be pressed.
    function takeFocus(): bool {
        const primary = Array.from(row.children).reverse().find(button => button.visible && button.enabled)
        primary?.forceActiveFocus(Qt.TabFocusReason)
        return primary !== undefined
    }

    Rectangle {
        width: parent.width
        height: Theme.hairline
        color: Theme.line
    }
    Icon {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        x: bar.frame.margin
        visible: bar.glyph !== ""
        glyph: bar.glyph === "" ? "check" : bar.glyph
        size: 18
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: bar.frame.margin + (icon.visible ? icon.width + Theme.space2 : 0)
        width: bar.frame.margin + bar.frame.column - x - (row.width > 0 ? row.width + Theme.space4 : 0)
        spacing: Theme.space1 / 2

        Label {
            width: parent.width
            look: icon.visible ? Theme.small : Theme.body
            weight: icon.visible ? Font.Normal : Font.Medium
            color: icon.visible ? Theme.ink2 : Theme.ink
            text: bar.sentence
            elide: Text.ElideRight
        }
        Label {
            width: parent.width
            visible: text !== ""
            look: Theme.caption
            text: bar.caption
            color: Theme.ink3
            elide: Text.ElideRight
        }
    }
    Row {
        id: row

        anchors.verticalCenter: parent.verticalCenter
        x: bar.frame.margin + bar.frame.column - width
        spacing: Theme.space4
    }
}
