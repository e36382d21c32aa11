// The edges of a frameless window, by which it is resized.
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window

Item {
    id: borders

    readonly property int thickness: 6
    readonly property int corner: 12

    component Edge: MouseArea {
        required property int edges

        acceptedButtons: Qt.LeftButton
        hoverEnabled: true
        onPressed: Window.window.startSystemResize(edges)
    }

    Edge {
        edges: Qt.TopEdge
        width: parent.width
        height: borders.thickness
        cursorShape: Qt.SizeVerCursor
    }
    Edge {
        edges: Qt.BottomEdge
        y: parent.height - height
        width: parent.width
        height: borders.thickness
        cursorShape: Qt.SizeVerCursor
    }
    Edge {
        edges: Qt.LeftEdge
        width: borders.thickness
        height: parent.height
        cursorShape: Qt.SizeHorCursor
    }
    Edge {
        edges: Qt.RightEdge
        x: parent.width - width
        width: borders.thickness
        height: parent.height
        cursorShape: Qt.SizeHorCursor
    }
    Edge {
        edges: Qt.TopEdge | Qt.LeftEdge
        width: borders.corner
        height: borders.thickness
        cursorShape: Qt.SizeFDiagCursor
    }
    Edge {
        edges: Qt.TopEdge | Qt.RightEdge
        x: parent.width - width
        width: borders.corner
        height: borders.thickness
        cursorShape: Qt.SizeBDiagCursor
    }
    Edge {
        edges: Qt.BottomEdge | Qt.LeftEdge
        y: parent.height - height
        width: borders.corner
        height: borders.thickness
        cursorShape: Qt.SizeBDiagCursor
    }
    Edge {
        edges: Qt.BottomEdge | Qt.RightEdge
        x: parent.width - width
        y: parent.height - height
        width: borders.corner
        height: borders.thickness
        cursorShape: Qt.SizeFDiagCursor
    }
}
