// A dashed rounded outline.
import QtQuick
import QtQuick.Shapes
import Nookwise

Shape {
    id: outline

    required property color color
    property real radius: Theme.radiusCheck
    property int lineWidth: Theme.hairline
    // A dash and a gap, in widths of the line.
    property var dashes: [3, 3]

    readonly property real near: lineWidth / 2
    readonly property real farX: width - near
    readonly property real farY: height - near

    ShapePath {
        strokeColor: outline.color
        strokeWidth: outline.lineWidth
        strokeStyle: ShapePath.DashLine
        dashPattern: outline.dashes
        fillColor: "transparent"
        startX: outline.near + outline.radius
        startY: outline.near

        PathLine {
            x: outline.farX - outline.radius
            y: outline.near
        }
        PathArc {
            x: outline.farX
            y: outline.near + outline.radius
            radiusX: outline.radius
            radiusY: outline.radius
        }
        PathLine {
            x: outline.farX
            y: outline.farY - outline.radius
        }
        PathArc {
            x: outline.farX - outline.radius
            y: outline.farY
            radiusX: outline.radius
            radiusY: outline.radius
        }
        PathLine {
            x: outline.near + outline.radius
            y: outline.farY
        }
        PathArc {
            x: outline.near
            y: outline.farY - outline.radius
            radiusX: outline.radius
            radiusY: outline.radius
        }
        PathLine {
            x: outline.near
            y: outline.near + outline.radius
        }
        PathArc {
            x: outline.near + outline.radius
            y: outline.near
            radiusX: outline.radius
            radiusY: outline.radius
        }
    }
}
