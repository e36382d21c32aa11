// Sets groups of a menu's entries apart.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.MenuSeparator {
    implicitHeight: 13
    Accessible.ignored: true

    contentItem: Item {
        Rectangle {
            x: Theme.space1
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - 2 * x
            height: Theme.hairline
            color: Theme.line
        }
    }
}
