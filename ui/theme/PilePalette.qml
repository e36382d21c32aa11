// One pile's or shelf's colours.
import QtQuick

QtObject {
    required property color badge
    required property color text
    required property color wash
    required property color back
    required property color frontTop
    required property color frontBottom
    required property color deep
    required property color card
    required property color secondCard
}
