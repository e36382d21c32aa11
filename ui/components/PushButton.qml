// A button whose label names its result.
import QtQuick
import Nookwise

PressButton {
    id: button

    enum Kind { Primary, Secondary, Quiet }

    property int kind: PushButton.Kind.Secondary
    property string glyph: ""
    // The icon stands behind the label.
    property bool leadsOn: false
    // Its height: 48 in an action bar, 40, 36, 32 or 28.
    property int size: 40

    readonly property bool big: size >= 48
    readonly property bool primary: kind === PushButton.Kind.Primary
    readonly property bool quiet: kind === PushButton.Kind.Quiet
    readonly property color inkColor: !enabled ? Theme.disabledText : primary ? Theme.accentInk : quiet ? Theme.accent : Theme.ink
    readonly property color fillColor: {
        if (!enabled)
            return quiet ? "transparent" : Theme.disabledFill
        if (primary)
            return down ? Theme.accentPress : hovered ? Theme.accentHover : Theme.accent
        if (quiet)
            return down ? Theme.hoverSidebar : hovered ? Theme.hover : "transparent"
        return down ? Theme.hoverSidebar : hovered ? Theme.hover : Theme.card
    }

    implicitHeight: size
    implicitWidth: Math.ceil(content.implicitWidth) + leftPadding + rightPadding
    horizontalPadding: quiet ? Theme.space2 : big ? 22 : size >= 40 ? 18 : 13
    spacing: Theme.space2
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        radius: button.big ? Theme.radiusCard : Theme.radiusButton
        color: button.fillColor
        border.width: button.primary && button.enabled || button.quiet ? 0 : Theme.hairline
        border.color: button.enabled ? Theme.lineStrong : Theme.disabledLine

        Behavior on color {
            ColorAnimation {
                duration: Theme.colourTime
            }
        }
        FocusRing {
            around: parent.radius
            visible: button.visualFocus
        }
    }
    Row {
        id: content

        anchors.centerIn: parent
        spacing: button.spacing
        layoutDirection: button.leadsOn ? Qt.RightToLeft : Qt.LeftToRight

        Icon {
            visible: button.glyph !== ""
            anchors.verticalCenter: parent.verticalCenter
            glyph: button.glyph === "" ? "check" : button.glyph
            size: button.size >= 40 ? 20 : 18
            color: button.inkColor
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            look: button.big ? Theme.lead : button.size >= 40 ? Theme.body : Theme.small
            weight: Font.DemiBold
            text: button.text
            color: button.inkColor
        }
    }
}
