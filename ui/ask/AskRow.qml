// One file that answers the question.
import QtQuick
import Nookwise

Rectangle {
    id: row

    required property int index
    required property string name
    required property string snippet
    required property string place
    required property string size
    required property string age
    required property string kindGroup
    required property string kindLabel
    required property string picture
    required property string spoken
    required property bool narrow
    required property int total
    required property AskModel ask
    required property bool chosen
    required property bool ring

    readonly property bool tipped: hover.hovered && metrics.elidedText !== name

    signal pointed
    signal opened
    signal menuAsked(real x, real y)

    radius: Theme.radiusCard
    color: chosen ? Theme.wash : hover.hovered ? Theme.hover : Theme.paper
    // A row that waits to be used again is not drawn, but would still be read out.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: spoken + ", " + (index + 1) + " of " + total
    Accessible.selectable: true
    Accessible.selected: chosen

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: mouse => {
            if (mouse.button === Qt.RightButton)
                row.menuAsked(mouse.x, mouse.y)
        }
        onClicked: mouse => {
            if (mouse.button === Qt.LeftButton)
                row.pointed()
        }
        onDoubleClicked: mouse => {
            if (mouse.button === Qt.LeftButton)
                row.opened()
        }
    }
    HoverHandler {
        id: hover
    }
    Rectangle {
        visible: row.chosen
        anchors.verticalCenter: parent.verticalCenter
        width: 4
        height: 28
        radius: 2
        color: Theme.accent
    }
    FileWell {
        id: well

        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: 48
        height: 52
        group: row.kindGroup
        label: row.kindLabel
        picture: row.picture
    }
    Column {
        id: texts

        anchors.left: well.right
        anchors.leftMargin: 14
        anchors.right: figures.left
        anchors.rightMargin: figures.visible ? Theme.space3 : 0
        anchors.verticalCenter: parent.verticalCenter

        MarkedLabel {
            width: parent.width
            height: look.line
            weight: Font.Medium
            markup: row.ask.marked(metrics.elidedText, row.ask.words)
        }
        Item {
            width: parent.width
            height: Math.min(snippetLabel.implicitHeight, 2 * Theme.smallTight.line)
            visible: row.snippet !== ""
            clip: true

            MarkedLabel {
                id: snippetLabel

                width: parent.width
                look: Theme.smallTight
                color: Theme.ink2
                markup: row.snippet
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            }
        }
        Label {
            width: parent.width
            visible: row.snippet === ""
            look: Theme.smallTight
            color: Theme.ink2
            text: row.place
            elide: Text.ElideMiddle
        }
        Label {
            width: parent.width
            visible: row.narrow
            look: Theme.caption
            color: Theme.ink3
            text: row.size + " · " + row.age
            elide: Text.ElideRight
        }
    }
    Column {
        id: figures

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: row.narrow ? 0 : 88
        visible: !row.narrow

        Label {
            width: parent.width
            look: Theme.small
            lineHeight: Theme.smallTight.line
            weight: Font.DemiBold
            text: row.size
            horizontalAlignment: Text.AlignRight
        }
        Label {
            width: parent.width
            look: Theme.caption
            color: Theme.ink3
            text: row.age
            horizontalAlignment: Text.AlignRight
        }
    }
    TextMetrics {
        id: metrics

        // Marks are wider than what is not marked.
        font.family: Theme.body.family
        font.pixelSize: Theme.body.size
        font.weight: Font.DemiBold
        text: row.name
        elide: Text.ElideMiddle
        elideWidth: texts.width
    }
    FocusRing {
        anchors.margins: Theme.ringGap
        around: Theme.radiusCard - 2 * Theme.ringGap
        visible: row.ring
    }
    Tip {
        // Nothing is laid out for rows that only pass by.
        text: row.tipped ? row.name : ""
        visible: row.tipped
    }
}
