// A text in one of the theme's styles, one line of the style's height unless it wraps.
import QtQuick
import Nookwise

Text {
    property TextStyle look: Theme.body
    property int weight: look.weight

    // Names of files come from anywhere and must never be read as markup.
    textFormat: Text.PlainText
    color: Theme.ink
    font.family: look.family
    font.pixelSize: look.size
    font.weight: weight
    font.letterSpacing: look.spacing
    lineHeightMode: Text.FixedHeight
    lineHeight: look.line
    // A name in letters that run to the left still begins where its neighbours do.
    horizontalAlignment: Text.AlignLeft
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
