// The place of a text that is not known yet.
import QtQuick
import Nookwise

Rectangle {
    radius: Theme.radiusTag
    color: Theme.skeleton
    Accessible.ignored: true
}
