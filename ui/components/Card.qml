// A white sheet on the paper.
import QtQuick
import Nookwise

Rectangle {
    radius: Theme.radiusCard
    color: Theme.card
    border.width: Theme.hairline
    border.color: Theme.line
}
