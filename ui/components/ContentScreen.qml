// A section's content.
import QtQuick
import Nookwise

FocusScope {
    required property Frame frame
    // What stands at the foot of the screen, if anything.
    property ActionBar bar: null

    // Puts the focus on the first thing to work with.
    function takeFocus(reason: int) {}
}
