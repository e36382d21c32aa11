// A short explanation that appears beside what it explains.
import QtQuick
import QtQuick.Templates as T
import Nookwise

T.ToolTip {
    id: tip

    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + Theme.space1 : 0
    implicitWidth: Math.min(implicitContentWidth + leftPadding + rightPadding, 480)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: Theme.space2
    horizontalPadding: 10
    verticalPadding: 6
    delay: Theme.tipDelay
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: Label {
        look: Theme.caption
        weight: Font.Medium
        text: tip.text
        color: Theme.darkInk
        wrapMode: Text.WrapAtWordBoundaryOrAnywhere
    }
    background: Rectangle {
        radius: Theme.radiusButton
        color: Theme.dark
    }
}
