// A pile's icon on its colour.
import QtQuick
import Nookwise

Rectangle {
    required property string name
    property int size: 28

    width: size
    height: size
    radius: size < 28 ? Theme.radiusCheck : Theme.radiusButton
    color: Palettes.of(name).badge

    Icon {
        anchors.centerIn: parent
        glyph: parent.name
        size: Math.round(parent.size * 0.64)
        color: Theme.accentInk
    }
}
