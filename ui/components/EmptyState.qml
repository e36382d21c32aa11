// A quiet picture with a sentence, and what can be done next.
import QtQuick
import Nookwise

Item {
    id: empty

    required property string picture
    // May be empty.
    required property string title
    required property string sentence
    default property alias buttons: row.data

    // Too low for the picture at its full size.
    readonly property bool tight: height < 520

    Column {
        id: column

        anchors.horizontalCenter: parent.horizontalCenter
        // Optically in the middle.
        y: Math.max(0, Math.round((parent.height - height) / 2) - 36)
        width: Math.min(parent.width, 520)

        Art {
            anchors.horizontalCenter: parent.horizontalCenter
            width: empty.tight ? 228 : 285
            height: empty.tight ? 184 : 230
            drawing: "art/" + empty.picture
        }
        Item {
            width: 1
            height: Theme.space6
        }
        Label {
            width: parent.width
            visible: text !== ""
            look: Theme.emptyTitle
            text: empty.title
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: false
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Item {
            width: 1
            height: 6
            visible: empty.title !== ""
        }
        Label {
            width: empty.title === "" ? parent.width : Math.min(parent.width, 440)
            anchors.horizontalCenter: parent.horizontalCenter
            look: Theme.lead
            text: empty.sentence
            color: Theme.ink2
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Item {
            width: 1
            height: Theme.space6
        }
        Row {
            id: row

            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.space2
        }
    }
}
