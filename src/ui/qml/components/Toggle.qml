import QtQuick
import Velko

/// A switch; whoever uses it changes `checked` when `activated` comes.
Pressable {
    id: root
    property bool checked: false

    role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: root.checked
    implicitWidth: 52
    implicitHeight: 30
    opacity: available ? 1 : 0.4

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.checked ? Theme.t1 : Theme.fill3
        Rectangle {
            width: 22
            height: 22
            radius: 11
            y: 4
            x: root.checked ? 26 : 4
            color: root.checked ? (Theme.light ? "#FFFFFF" : Theme.bg) : Theme.t2
            Behavior on x { NumberAnimation { duration: Theme.fast; easing.type: Easing.OutQuad } }
        }
    }
    FocusRing {
        visible: root.lit
        radiusInside: 15
        gap: 3
        thickness: 3
    }
}
