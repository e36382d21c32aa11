// A text in one of the theme's styles with some of its words marked.
import QtQuick
import Nookwise

Text {
    id: label

    // Escaped: what came from a file must never be read as markup.
    required property string markup
    property TextStyle look: Theme.body
    property int weight: look.weight

    textFormat: Text.RichText
    text: Theme.markStyle(look) + "<div class=\"marked\" align=\"left\">" + markup + "</div>"
    color: Theme.ink
    font.family: look.family
    font.pixelSize: look.size
    font.weight: weight
    font.letterSpacing: look.spacing
    Accessible.ignored: true
}
