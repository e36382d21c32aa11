// Home's headline with its one action, or how far the scan has come.
import QtQuick
import Nookwise

Item {
    id: headline

    required property Frame frame
    required property HomeModel home
    required property ScanModel scan

    readonly property TextStyle look: frame.narrow ? Theme.heroNarrow : Theme.hero

    // Room below, beside that which separates the cards from one another.
    implicitHeight: texts.height + (frame.narrow ? Theme.space1 : Theme.space2)

    function takeFocus(reason: int) {
        action.forceActiveFocus(reason)
    }

    ProgressLine {
        y: -Theme.space4
        width: parent.width - 96
        height: 3
        visible: headline.scan.scanning && !headline.scan.first
        value: headline.scan.fraction
    }
    Column {
        id: texts

        width: parent.width
        spacing: 2

        Row {
            // The letters are higher than their line.
            height: headline.look.line
            spacing: Theme.space2

            Label {
                id: title

                look: headline.look
                text: headline.scan.first ? "Reading your folders… ·" : headline.home.headline
                Accessible.ignored: false
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Label {
                visible: headline.scan.first
                look: headline.look
                color: Theme.ink2
                text: headline.scan.filesText
            }
        }
        Label {
            width: action.x - Theme.space4
            look: Theme.body
            color: Theme.ink2
            elide: Text.ElideRight
            text: {
                if (headline.scan.first)
                    return "Everything is read on this Mac. You can already ask for a file."
                return headline.scan.scanning ? headline.scan.step : headline.home.sentence
            }
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    PushButton {
        id: action

        anchors.right: parent.right
        anchors.bottom: texts.bottom
        visible: !headline.scan.first
        kind: headline.home.clean ? PushButton.Kind.Secondary : PushButton.Kind.Primary
        glyph: headline.home.clean ? "refresh" : "sweep"
        text: headline.home.clean ? "Scan Again" : "Review the piles"
        onClicked: headline.home.clean ? headline.scan.scanAgain() : headline.home.reviewPiles()
    }
}
