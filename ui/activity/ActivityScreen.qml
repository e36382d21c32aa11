// Everything that was done to files, to be put back.
import QtQuick
import Nookwise

ContentScreen {
    id: screen

    required property ActivityModel activity
    required property DiskModel disk

    function takeFocus(reason: int) {
        list.forceActiveFocus(reason)
    }

    // What scrolls keeps clear of the window's buttons.
    Column {
        id: head

        x: screen.frame.margin
        y: screen.frame.low ? Theme.space5 : Theme.space7
        width: screen.frame.column

        Label {
            look: Theme.title
            text: "Activity"
            Accessible.ignored: false
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Label {
            width: parent.width
            look: Theme.small
            color: Theme.ink2
            text: "Everything Nookwise moved, renamed or trashed. Put anything back in one click."
            elide: Text.ElideRight
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    ActivityList {
        id: list

        anchors.top: head.bottom
        anchors.topMargin: Theme.space2
        anchors.bottom: parent.bottom
        width: parent.width
        frame: screen.frame
        activity: screen.activity
        disk: screen.disk
    }
    EmptyState {
        anchors.fill: list
        anchors.topMargin: list.topMargin + 2 * Theme.space6
        visible: screen.activity.empty
        picture: "nook-activity"
        title: ""
        sentence: "When you sweep something, it shows up here and can be put back."
    }
}
