// One of the application's drawings, drawn at the size it is shown in.
import QtQuick

Image {
    required property string drawing

    sourceSize.width: Math.round(width * Screen.devicePixelRatio)
    sourceSize.height: Math.round(height * Screen.devicePixelRatio)
    source: Qt.resolvedUrl("../assets/" + drawing + ".svg")
    Accessible.ignored: true
}
