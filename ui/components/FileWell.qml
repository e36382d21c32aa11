// A file's badge in a sunken frame, where a picture of the file would stand.
import QtQuick
import Nookwise

Rectangle {
    id: well

    required property string group
    required property string label

    radius: 6
    color: Theme.sunken
    border.width: Theme.hairline
    border.color: Theme.line

    FileBadge {
        anchors.centerIn: parent
        height: Math.round(parent.height * 0.72)
        width: Math.round(height * 0.8)
        group: well.group
        label: well.label
    }
}
