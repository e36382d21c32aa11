// A section's content.
import QtQuick
import Nookwise

FocusScope {
    required property Frame frame

    // Puts the focus on the first thing to work with.
    function takeFocus() {}
}
