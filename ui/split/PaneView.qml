// One side: a folder's listing with its state, and where files are dropped on it.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: view

    required property Frame frame
    required property PaneModel pane
    // The room above the rows that the header takes.
    required property int headerHeight
    property alias list: list

    readonly property bool held: area.offer !== PaneDropArea.None

    signal dragStarted
    signal menuAsked(x: real, y: real)
    signal otherSideAsked(key: int)

    Accessible.role: Accessible.Grouping
    Accessible.name: pane.spoken

    Card {
        anchors.fill: parent
        border.width: view.pane.active ? Theme.strongLine : Theme.hairline
        border.color: view.pane.active ? Theme.accent : Theme.lineStrong
    }
    Rectangle {
        visible: !view.pane.active
        x: Theme.hairline
        y: Theme.hairline
        width: parent.width - 2 * x
        height: view.headerHeight - y
        radius: Theme.radiusCard - 1
        color: Theme.paper

        Rectangle {
            y: parent.radius
            width: parent.width
            height: parent.height - y
            color: parent.color
        }
    }
    Rectangle {
        x: Theme.strongLine
        y: view.headerHeight - height
        width: parent.width - 2 * x
        height: Theme.hairline
        color: Theme.line
    }
    PaneList {
        id: list

        x: Theme.strongLine
        y: view.headerHeight
        width: parent.width - 2 * x
        height: foot.y - y
        frame: view.frame
        pane: view.pane
        target: view.held ? area.row : -1
        onDragStarted: view.dragStarted()
        onMenuAsked: (x, y) => view.menuAsked(x + list.x, y + list.y)
        onOtherSideAsked: key => view.otherSideAsked(key)
    }
    Column {
        anchors.centerIn: list
        visible: view.pane.empty
        spacing: Theme.space3

        Art {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 104
            height: 83
            drawing: "art/folder-ghost-back"

            Art {
                anchors.fill: parent
                drawing: "art/folder-ghost-front"
            }
        }
        Label {
            look: Theme.small
            color: Theme.ink2
            text: "Nothing in this folder"
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    ProgressLine {
        id: reading

        // How long it will take is not known.
        property real run

        x: Theme.strongLine
        y: view.headerHeight - height
        width: parent.width - 2 * x
        height: 3
        visible: view.pane.reading
        value: Theme.reducedMotion ? 0.5 : run
        still: true
        Accessible.role: Accessible.ProgressBar
        Accessible.name: "Reading " + view.pane.name

        NumberAnimation on run {
            running: reading.visible && !Theme.reducedMotion
            from: 0
            to: 1
            duration: Theme.turnTime
            loops: Animation.Infinite
        }
    }
    Item {
        id: foot

        x: Theme.strongLine
        y: parent.height - height
        width: parent.width - 2 * x
        height: 38

        Rectangle {
            width: parent.width
            height: Theme.hairline
            color: Theme.line
        }
        Label {
            x: Theme.space4
            width: parent.width - 2 * x
            anchors.verticalCenter: parent.verticalCenter
            look: Theme.small
            color: Theme.ink2
            text: view.pane.status
            elide: Text.ElideRight
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    DropHint {
        anchors.fill: parent
        anchors.margins: 6 + Theme.hairline
        // Above the header, which is not the view's own.
        z: 1
        visible: view.held && area.row < 0
        pane: view.pane
        sentence: area.offer === PaneDropArea.Copy && area.foreign ? "Drop to copy here" : "Drop to move here"
        other: area.foreign ? "" : "Hold ⌥ to copy instead"
    }
    PaneDropArea {
        id: area

        anchors.fill: parent
        z: 2
        pane: view.pane
        listTop: list.y
        listBottom: list.y + list.height
        rowsTop: list.y + list.rowsTop
        rowHeight: list.rowHeight
        onDropped: list.forceActiveFocus(Qt.OtherFocusReason)
    }
    // Rows that are out of sight come into it near the edges.
    Timer {
        readonly property int edge: area.pointerY < 0 ? 0 : area.pointerY < list.y ? 0 : area.pointerY < list.y + list.rowHeight ? -1 : area.pointerY > foot.y ? 0 : area.pointerY > foot.y - list.rowHeight ? 1 : 0

        running: edge !== 0
        interval: 16
        repeat: true
        onTriggered: list.scrollBy(edge * 6)
    }
}
