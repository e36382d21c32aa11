// The main window.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Nookwise

Window {
    id: window

    required property ScanModel scan
    required property PilesModel piles
    required property DiskModel disk
    required property SidebarModel sidebar
    required property HomeModel home
    required property AskModel ask
    required property IndexingModel indexing
    required property SweepModel sweep
    required property DuplicatesModel duplicates
    required property ActivityModel activity
    required property RenameModel rename
    required property SplitModel split
    required property ClearedModel cleared
    required property TrashSheetModel trashSheet
    required property ToastModel toast
    required property BusyModel busy
    required property TransferModel transfer

    readonly property Frame frame: Frame {
        width: window.width
        height: window.height
    }

    width: 1200
    height: 760
    minimumWidth: 960
    minimumHeight: 640
    title: "Nookwise"
    flags: Qt.Window | Qt.FramelessWindowHint
    color: Theme.paper

    function showSection() {
        const shared = {
            frame: frame,
            piles: piles,
            scan: scan
        }
        if (rename.open) {
            screens.setSource("../rename/RenameScreen.qml", {
                frame: frame,
                rename: rename
            })
            return
        }
        switch (sidebar.section) {
        case "ask":
            screens.setSource("../ask/AskScreen.qml", {
                frame: frame,
                ask: ask,
                indexing: indexing,
                scan: scan
            })
            break
        case "sweep":
            screens.setSource("../sweep/SweepScreen.qml", Object.assign(shared, {
                sweep: sweep,
                cleared: cleared
            }))
            break
        case "duplicates":
            screens.setSource("../duplicates/DuplicatesScreen.qml", Object.assign(shared, {
                duplicates: duplicates
            }))
            break
        case "split":
            screens.setSource("../split/SplitScreen.qml", {
                frame: frame,
                split: split
            })
            break
        case "activity":
            screens.setSource("../activity/ActivityScreen.qml", {
                frame: frame,
                activity: activity,
                disk: disk
            })
            break
        default:
            screens.setSource("../home/HomeScreen.qml", Object.assign(shared, {
                home: home,
                disk: disk,
                ask: ask
            }))
        }
    }

    function focusContent(reason: int) {
        (screens.item as ContentScreen)?.takeFocus(reason)
    }

    // From the sidebar to the content, its action bar, the toast, the transfer, and round again.
    function cycleFocus() {
        const bar = (screens.item as ContentScreen)?.bar ?? null
        if (sections.holdsFocus())
            return focusContent(Qt.TabFocusReason)
        if (!notice.activeFocus && !transferred.holdsFocus) {
            if (bar && !bar.holdsFocus && bar.takeFocus())
                return
            if (toast.shown)
                return notice.takeFocus()
        }
        if (transferred.visible && !transferred.holdsFocus)
            return transferred.takeFocus()
        sections.takeFocus()
    }

    Sidebar {
        id: sections

        width: window.frame.sidebar
        height: parent.height
        frame: window.frame
        sections: window.sidebar
        disk: window.disk
    }
    DragArea {
        anchors.left: sections.right
        anchors.right: parent.right
        height: window.frame.dragHeight
    }
    Loader {
        id: screens

        anchors.left: sections.right
        anchors.right: parent.right
        height: parent.height
        y: rise
        focus: true

        property int rise: 0

        onLoaded: {
            window.focusContent(Qt.OtherFocusReason)
            appear.restart()
        }

        ParallelAnimation {
            id: appear

            NumberAnimation {
                target: screens
                property: "opacity"
                from: 0
                to: 1
                duration: Theme.moveTime
            }
            NumberAnimation {
                target: screens
                property: "rise"
                from: 8
                to: 0
                duration: Theme.moveTime
                easing.type: Easing.OutCubic
            }
        }
    }
    Item {
        anchors.fill: screens

        PressGuard {
            id: changed
        }
    }
    ToastView {
        id: notice

        readonly property real foot: (screens.item as ContentScreen)?.bar?.height ?? 0

        x: Math.round(screens.x + (screens.width - width) / 2)
        y: parent.height - foot - Theme.space6 - height + rise
        toast: window.toast
        room: window.frame.column
        onFocusLeft: screens.forceActiveFocus(Qt.OtherFocusReason)
    }
    TransferCard {
        id: transferred

        x: Math.round(screens.x + (screens.width - width) / 2)
        y: (window.toast.shown ? notice.y - Theme.space2 : notice.y + notice.height) - height
        transfer: window.transfer
        room: window.frame.column
        onFocusLeft: screens.forceActiveFocus(Qt.OtherFocusReason)
    }
    WindowControls {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        y: 10
    }
    BusyCard {
        anchors.fill: parent
        work: window.busy
    }
    ConfirmSheet {
        request: window.trashSheet
    }
    Rectangle {
        anchors.fill: parent
        visible: window.visibility === Window.Windowed
        color: "transparent"
        border.width: Theme.hairline
        border.color: Theme.lineStrong
    }
    ResizeBorders {
        anchors.fill: parent
        visible: window.visibility === Window.Windowed
    }

    Repeater {
        model: window.sidebar.rows

        Item {
            id: entry

            required property string key
            required property string shortcut

            Shortcut {
                sequence: entry.shortcut
                onActivated: {
                    window.sidebar.open(entry.key)
                    if (entry.key === "ask")
                        window.focusContent(Qt.ShortcutFocusReason)
                }
            }
        }
    }
    Shortcut {
        sequence: "Ctrl+R"
        onActivated: window.scan.scanAgain()
    }
    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: Qt.quit()
    }
    Shortcut {
        sequence: "Ctrl+Z"
        onActivated: window.toast.undoLast()
    }
    Shortcut {
        sequence: "F6"
        onActivated: window.cycleFocus()
    }

    Connections {
        target: window.sidebar

        function onSectionChanged() {
            // Which shows the section.
            if (window.rename.open)
                window.rename.cancel()
            else
                window.showSection()
        }
    }

    Connections {
        target: window.rename

        function onOpenChanged() {
            changed.start()
            window.showSection()
        }
    }

    Component.onCompleted: {
        showSection()
        scan.startFirstScan()
    }
}
