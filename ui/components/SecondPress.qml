// Runs while a press may be the second of a double click on what stood there before.
import QtQuick

Timer {
    interval: Application.styleHints.mouseDoubleClickInterval
}
