// What is pressed by the pointer, by Space and by Enter: once, however long a key is held.
import QtQuick
import QtQuick.Templates as T

T.AbstractButton {
    id: button

    Accessible.role: Accessible.Button
    Keys.onPressed: event => {
        const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
        if (enter && !event.isAutoRepeat)
            button.clicked()
        event.accepted = enter || event.key === Qt.Key_Space && event.isAutoRepeat
    }
    Keys.onReleased: event => event.accepted = event.key === Qt.Key_Space && event.isAutoRepeat
}
