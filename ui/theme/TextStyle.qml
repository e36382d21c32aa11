// One text style.
import QtQuick

QtObject {
    required property int size
    // The height of a line.
    required property int line
    property int weight: Font.Normal
    property real spacing: 0
    property string family: "Inter"
}
