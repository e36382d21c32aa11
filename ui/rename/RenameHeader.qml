// What the screen is for, and the way back.
import QtQuick
import Nookwise

Item {
    id: header

    signal wentBack

    implicitHeight: title.height + explanation.height

    SquareButton {
        size: 32
        glyph: "chevron-left"
        text: "Back"
        onClicked: header.wentBack()
    }
    Label {
        id: title

        x: 48
        width: parent.width - x
        height: look.line
        look: Theme.title
        text: "Rename by text inside…"
        elide: Text.ElideRight
        Accessible.ignored: false
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Label {
        id: explanation

        x: 48
        anchors.top: title.bottom
        width: parent.width - x
        look: Theme.small
        color: Theme.ink2
        text: "Names are built from what’s written inside each picture or PDF."
        elide: Text.ElideRight
        Accessible.ignored: false
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
