// What was done, as a picture: the pile that was swept, or an icon.
import QtQuick
import Nookwise

Rectangle {
    id: picture

    // Empty when the files came from no pile.
    required property string pile
    required property string kind

    width: 44
    height: 44
    radius: Theme.radiusButton
    color: pile !== "" ? Palettes.of(pile).wash : Palettes.change(kind).wash
    Accessible.ignored: true

    Art {
        anchors.centerIn: parent
        visible: picture.pile !== ""
        width: 35
        height: 28
        drawing: "art/mini-" + (picture.pile === "" ? "forgotten" : picture.pile)
    }
    Icon {
        anchors.centerIn: parent
        visible: picture.pile === ""
        glyph: picture.kind
        color: Palettes.change(picture.kind).text
    }
}
