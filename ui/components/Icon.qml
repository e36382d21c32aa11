// One of the application's icons in a colour.
import QtQuick
import QtQuick.Controls.impl
import Nookwise

IconImage {
    required property string glyph
    property int size: 20

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: Qt.resolvedUrl("../assets/icons/" + glyph + ".svg")
    color: Theme.ink2
    Accessible.ignored: true
}
