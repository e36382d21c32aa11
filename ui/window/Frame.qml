// The room that the window leaves, and what follows from it.
import QtQuick

QtObject {
    required property real width
    required property real height

    readonly property bool narrow: width < 1080
    // Too low for generous rows.
    readonly property bool low: height < 700
    readonly property int sidebar: narrow ? 200 : 232
    readonly property int margin: narrow ? 28 : 40
    readonly property int column: Math.min(width - sidebar - 2 * margin, 1120)
    // The part of the window's top that moves it, and of that the part that its buttons need.
    readonly property int dragHeight: 64
    readonly property int controlsWidth: 112
}
