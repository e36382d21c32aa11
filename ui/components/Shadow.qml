// What lies around something that floats, to be placed beneath it.
import QtQuick

BorderImage {
    anchors.fill: parent
    // How far the drawing reaches beyond the box.
    anchors.margins: -48
    border.left: 64
    border.right: 64
    border.top: 64
    border.bottom: 64
    source: Qt.resolvedUrl("../assets/art/shadow-9.png")
    Accessible.ignored: true
}
