// Something to choose in a menu.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.MenuItem {
    id: entry

    required property string glyph
    // The keys that do the same without the menu; empty without any.
    property string keys: ""

    readonly property int inset: 10

    implicitWidth: Math.ceil(label.x + label.implicitWidth + (keys === "" ? 0 : Theme.space6 + keysLabel.implicitWidth)) + inset
    implicitHeight: Math.max(32, Math.ceil(label.implicitHeight) + Theme.space3)
    // Arrows pass by what cannot be chosen.
    activeFocusOnTab: enabled
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.description: keys

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: entry.highlighted && entry.enabled ? Theme.wash : Theme.card
    }
    Icon {
        id: icon

        x: entry.inset
        anchors.verticalCenter: parent.verticalCenter
        glyph: entry.glyph
        color: entry.enabled ? Theme.ink2 : Theme.ink3
    }
    Label {
        id: label

        x: icon.x + icon.width + entry.inset
        anchors.verticalCenter: parent.verticalCenter
        look: Theme.small
        color: entry.enabled ? Theme.ink : Theme.ink3
        text: entry.text
    }
    Label {
        id: keysLabel

        anchors.right: parent.right
        anchors.rightMargin: entry.inset
        anchors.verticalCenter: parent.verticalCenter
        look: Theme.caption
        color: Theme.ink3
        text: entry.keys
    }
}
