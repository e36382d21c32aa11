// A small picture of a file in a sunken frame, or its badge where it has none.
import QtQuick
import QtQuick.Window
import Nookwise

Rectangle {
    id: well

    required property string group
    required property string label
    // Empty for a file without one.
    property string picture: ""

    readonly property bool pictured: image.status === Image.Ready && image.implicitWidth > 1

    radius: 6
    color: Theme.sunken
    border.width: Theme.hairline
    border.color: Theme.line

    FileBadge {
        visible: !well.pictured
        anchors.centerIn: parent
        height: Math.round(parent.height * 0.72)
        width: Math.round(height * 0.8)
        group: well.group
        label: well.label
    }
    Image {
        id: image

        anchors.fill: parent
        visible: well.pictured
        asynchronous: true
        source: well.picture
        sourceSize.width: Math.round(width * Screen.devicePixelRatio)
        sourceSize.height: Math.round(height * Screen.devicePixelRatio)
        Accessible.ignored: true
    }
}
