// A pile's files with their ticks.
import QtQuick
import Nookwise

Item {
    id: review

    required property Frame frame
    required property SweepModel sweep
    required property string hint

    function focusList(byKey: bool) {
        list.takeFocus(byKey)
    }

    PileHeader {
        id: header

        x: review.frame.margin
        y: review.frame.low ? Theme.space3 : Theme.space5
        width: review.frame.column
        frame: review.frame
        name: review.sweep.pile
        count: review.sweep.count
        title: review.sweep.title
        subtitle: review.sweep.subtitle
        total: review.sweep.totalText
        countText: review.sweep.countText
    }
    SpaceStrip {
        id: strip

        anchors.top: header.bottom
        anchors.topMargin: review.frame.low ? Theme.space3 : Theme.space4
        x: review.frame.margin
        width: review.frame.column
        height: review.frame.low ? 32 : 40
        sweep: review.sweep
        markedRow: list.markedRow
        onPicked: row => list.show(row)
    }
    TickRow {
        id: ticks

        anchors.top: strip.bottom
        anchors.topMargin: review.frame.low ? 2 : Theme.space2
        x: review.frame.margin
        width: review.frame.column
        sweep: review.sweep
        hint: review.frame.narrow ? "" : review.hint
    }
    SweepList {
        id: list

        anchors.top: ticks.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        frame: review.frame
        sweep: review.sweep
    }
    Shortcut {
        sequence: "Ctrl+A"
        onActivated: review.sweep.selectAll()
    }
    Shortcut {
        sequence: "Ctrl+Shift+A"
        onActivated: review.sweep.selectNone()
    }
}
