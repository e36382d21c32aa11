// Nothing answers the question, and what could be left out of it.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

EmptyState {
    id: noMatch

    required property AskModel ask
    required property IndexingModel indexing

    signal filterPressed(int row)

    picture: "nook-no-match"
    title: "No match — but we’re close"
    sentence: ask.filtered ? "One of these filters is hiding everything." : "Try fewer words, or part of the name."

    Column {
        spacing: Theme.space7

        CentredFlow {
            width: noMatch.width
            visible: noMatch.ask.filtered
            spacing: 10

            Repeater {
                model: noMatch.ask.filters

                Chip {
                    required property int index
                    required property string label
                    required heading

                    size: 40
                    corner: Theme.radiusButton
                    removes: true
                    text: label
                    onClicked: noMatch.filterPressed(index)
                }
            }
        }
        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: text !== ""
            look: Theme.small
            color: Theme.ink3
            text: noMatch.ask.moreFilters
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        HoneyNote {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: noMatch.indexing.running
            glyph: "text-found"
            text: "Still reading text in images — try again in a minute."
        }
    }
}
