// What each day of the month freed.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: bars

    required property bool narrow
    required property ActivityModel activity
    // The room there is; a long month moves its days together.
    required property real room

    readonly property int count: activity.days.length
    readonly property int pitch: Math.max(2, Math.min(narrow ? 8 : 14, Math.floor((room + gap) / count)))
    readonly property int gap: narrow ? 3 : 4
    readonly property int barWidth: Math.max(1, pitch - gap)
    readonly property int tallest: 60
    readonly property int labelHeight: tallest + 5

    implicitWidth: count * pitch - gap
    implicitHeight: 81
    Accessible.role: Accessible.Graphic
    Accessible.name: activity.spokenDays

    Repeater {
        model: bars.activity.days

        Rectangle {
            required property int index
            required property double modelData

            x: bars.width - (bars.count - index) * bars.pitch + bars.gap
            y: bars.tallest - height
            width: bars.barWidth
            height: Math.max(modelData > 0 ? 5 : 3, Math.round(modelData * bars.tallest))
            radius: Math.min(width, height) > 5 ? 3 : 1
            color: modelData === 0 ? Theme.meterTrack : index === bars.count - 1 ? Theme.accent : Theme.accentPale
        }
    }
    Label {
        id: firstLabel

        y: bars.labelHeight
        visible: implicitWidth + todayLabel.implicitWidth + Theme.space2 <= bars.width
        look: Theme.micro
        weight: Font.Normal
        color: Theme.ink3
        text: bars.activity.firstDayText
    }
    Label {
        id: todayLabel

        y: bars.labelHeight
        anchors.right: parent.right
        look: Theme.micro
        weight: Font.Normal
        color: Theme.ink3
        text: "Today"
    }
}
