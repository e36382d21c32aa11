// The sections of the window and the state of the disk.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Nookwise

Rectangle {
    id: sidebar

    required property Frame frame
    required property SidebarModel sections
    required property DiskModel disk

    color: Theme.sidebar

    function takeFocus() {
        list.forceActiveFocus(Qt.TabFocusReason)
    }

    function holdsFocus(): bool {
        return list.activeFocus
    }

    DragArea {
        width: parent.width
        height: list.y
    }
    Item {
        id: brand

        x: Theme.space5
        y: sidebar.frame.low ? 10 : 12
        width: parent.width - 2 * Theme.space5
        height: 32

        Art {
            id: brandIcon

            anchors.verticalCenter: parent.verticalCenter
            width: 24
            height: 24
            drawing: "app-icon"
        }
        Label {
            anchors.left: brandIcon.right
            anchors.leftMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.subhead
            text: "Nookwise"
        }
    }
    ListView {
        id: list

        anchors.top: brand.bottom
        anchors.topMargin: sidebar.frame.low ? 2 : Theme.space2
        anchors.bottom: footer.top
        x: Theme.space3
        width: parent.width - Theme.space3 - 13
        // The ring around an entry stands out of the list.
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        activeFocusOnTab: true
        keyNavigationEnabled: true
        highlightFollowsCurrentItem: true
        Accessible.role: Accessible.List
        Accessible.name: "Sections"
        model: sidebar.sections.rows

        Keys.onPressed: event => {
            if (event.key === Qt.Key_Home)
                currentIndex = 0
            else if (event.key === Qt.Key_End)
                currentIndex = count - 1
            else
                return
            event.accepted = true
        }
        Keys.onReturnPressed: sidebar.sections.openRow(currentIndex)
        Keys.onEnterPressed: sidebar.sections.openRow(currentIndex)
        Keys.onSpacePressed: sidebar.sections.openRow(currentIndex)

        delegate: FocusScope {
            id: entry

            required property int index
            required property string key
            required property string label
            required property string glyph
            required property string heading
            required property string count
            required property bool current

            width: ListView.view.width
            height: headingLabel.height + item.height
            onCurrentChanged: if (current) list.currentIndex = index
            Component.onCompleted: if (current) list.currentIndex = index

            Label {
                id: headingLabel

                x: 10
                height: text === "" ? 0 : sidebar.frame.low ? 26 : 32
                look: Theme.micro
                color: Theme.ink3
                text: entry.heading
            }
            SidebarItem {
                id: item

                focus: true
                y: headingLabel.height
                width: parent.width
                label: entry.label
                glyph: entry.glyph
                count: entry.count
                current: entry.current
                low: sidebar.frame.low
                focusShown: activeFocus
                onClicked: sidebar.sections.open(entry.key)
            }
        }
        T.ScrollBar.vertical: ThinScrollBar {}
    }
    SidebarFooter {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        disk: sidebar.disk
    }
    Rectangle {
        anchors.right: parent.right
        width: Theme.hairline
        height: parent.height
        color: Theme.line
    }
}
