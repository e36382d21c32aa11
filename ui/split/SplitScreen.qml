// Two folders side by side.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Nookwise

ContentScreen {
    id: screen

    required property SplitModel split

    readonly property int gutterWidth: frame.narrow ? 48 : 56
    readonly property int paneWidth: Math.floor((frame.column - gutterWidth) / 2)
    readonly property int paneTop: 100
    readonly property int paneHeight: actions.y - (frame.low ? Theme.space6 : 48) - paneTop
    readonly property PaneView activeView: split.leftActive ? leftView : rightView

    bar: actions

    function takeFocus(reason: int) {
        activeView.list.takeFocus(reason, reason === Qt.MouseFocusReason)
    }

    // Instead of a button that cannot be pressed any more.
    function leaveButton(pointed: bool) {
        activeView.list.takeFocus(Qt.OtherFocusReason, pointed)
    }

    function drag(pane: PaneModel) {
        const picture = pane === split.left ? leftGhost : rightGhost
        const ratio = Screen.devicePixelRatio
        picture.grabToImage(result => files.start(pane, screen.Window.window, result.image, picture.hotSpot, ratio), Qt.size(picture.width * ratio, picture.height * ratio))
    }

    function showMenu(view: PaneView, x: real, y: real) {
        if (split.pointMenu())
            menu.openAt(view, x, y)
    }

    function work(event: var): bool {
        const modifiers = event.modifiers & ~Qt.KeypadModifier
        if (event.key === Qt.Key_A && modifiers === Qt.ControlModifier)
            split.active.selectAll()
        else if (event.key === Qt.Key_A && modifiers === (Qt.ControlModifier | Qt.ShiftModifier))
            split.active.selectNone()
        else if (event.key === Qt.Key_Escape)
            split.active.selectNone()
        else if (event.key === Qt.Key_Delete && modifiers === Qt.NoModifier && !event.isAutoRepeat)
            split.trashSelected()
        else
            return false
        return true
    }

    Keys.onPressed: event => event.accepted = work(event)
    Component.onCompleted: split.show()
    Connections {
        target: Application

        // Other programs may have worked on the folders meanwhile.
        function onStateChanged() {
            if (Application.state === Qt.ApplicationActive)
                screen.split.show()
        }
    }
    Shortcut {
        sequence: "Ctrl+Shift+M"
        onActivated: screen.split.moveSelected()
    }
    Shortcut {
        sequence: "Ctrl+Alt+Shift+M"
        onActivated: screen.split.copySelected()
    }
    FileDrag {
        id: files

        onEnded: screen.split.show()
    }
    DragGhost {
        id: leftGhost

        pane: screen.split.left
    }
    DragGhost {
        id: rightGhost

        pane: screen.split.right
    }

    Label {
        x: screen.frame.margin
        y: Theme.space7
        look: Theme.title
        text: "Split view"
        Accessible.ignored: false
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Label {
        x: screen.frame.margin
        y: 60
        width: screen.frame.column
        look: Theme.small
        color: Theme.ink2
        text: "Two folders side by side. Drag files across to move them, hold ⌥ to copy."
        elide: Text.ElideRight
        Accessible.ignored: false
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    PaneHeader {
        id: leftHeader

        x: leftView.x
        y: screen.paneTop
        z: 1
        width: screen.paneWidth
        pane: screen.split.left
        onTopReached: pointed => leftView.list.takeFocus(Qt.OtherFocusReason, pointed)
    }
    PaneHeader {
        id: rightHeader

        x: rightView.x
        y: screen.paneTop
        z: 1
        width: screen.paneWidth
        pane: screen.split.right
        onTopReached: pointed => rightView.list.takeFocus(Qt.OtherFocusReason, pointed)
    }
    PaneView {
        id: leftView

        x: screen.frame.margin
        y: screen.paneTop
        z: held ? 2 : 0
        width: screen.paneWidth
        height: screen.paneHeight
        frame: screen.frame
        pane: screen.split.left
        headerHeight: leftHeader.height
        onDragStarted: screen.drag(pane)
        onMenuAsked: (x, y) => screen.showMenu(leftView, x, y)
        onOtherSideAsked: key => {
            if (key === Qt.Key_Right)
                rightView.list.forceActiveFocus(Qt.TabFocusReason)
        }
    }
    PaneView {
        id: rightView

        x: screen.frame.margin + screen.frame.column - width
        y: screen.paneTop
        z: held ? 2 : 0
        width: screen.paneWidth
        height: screen.paneHeight
        frame: screen.frame
        pane: screen.split.right
        headerHeight: rightHeader.height
        onDragStarted: screen.drag(pane)
        onMenuAsked: (x, y) => screen.showMenu(rightView, x, y)
        onOtherSideAsked: key => {
            if (key === Qt.Key_Left)
                leftView.list.forceActiveFocus(Qt.TabFocusReason)
        }
    }
    SplitGutter {
        x: leftView.x + leftView.width + Math.round((rightView.x - leftView.x - leftView.width - width) / 2)
        y: screen.paneTop + Math.round((screen.paneHeight - height) / 2)
        split: screen.split
        onPassed: pointed => screen.leaveButton(pointed)
    }
    ActionBar {
        id: actions

        anchors.bottom: parent.bottom
        width: parent.width
        frame: screen.frame
        sentence: screen.split.sentence
        caption: screen.split.caption

        PushButton {
            kind: PushButton.Kind.Primary
            size: 48
            leadsOn: true
            glyph: screen.split.leftActive ? "move" : "move-left"
            text: "Move to other side"
            enabled: screen.split.canPass
            onClicked: {
                const pointed = !visualFocus
                screen.split.moveSelected()
                screen.leaveButton(pointed)
            }
        }
    }
    FileMenuView {
        id: menu

        files: screen.split.menu
    }
}
