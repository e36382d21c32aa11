// What can be asked.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: blank

    required property Frame frame
    required property AskModel ask
    required property IndexingModel indexing

    signal chosen

    EmptyState {
        width: parent.width
        anchors.top: parent.top
        anchors.bottom: card.visible ? card.top : parent.bottom
        picture: "nook-ask"
        title: ""
        sentence: "Ask the way you’d ask a person. Nookwise understands kinds, dates, sizes and where a file came from — and reads the text inside screenshots and PDFs."

        Repeater {
            model: [
                { glyph: "from", question: "pdfs from gmail last month" },
                { glyph: "wifi", question: "wifi password" },
                { glyph: "receipt", question: "invoice" },
                { glyph: "clips", question: "big videos" }
            ]

            Chip {
                required property var modelData

                glyph: modelData.glyph
                text: modelData.question
                size: 40
                onClicked: {
                    blank.chosen()
                    blank.ask.question = text
                }
            }
        }
    }
    IndexingCard {
        id: card

        anchors.bottom: parent.bottom
        anchors.bottomMargin: blank.frame.low ? Theme.space4 : 32
        width: parent.width
        visible: blank.indexing.running
        indexing: blank.indexing
    }
}
