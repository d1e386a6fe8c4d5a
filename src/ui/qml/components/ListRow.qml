import QtQuick
import Velko

/// A row of a list or menu: icon, text, an optional second line and a value at the right.
Pressable {
    id: root
    property string text
    property string detail
    property string icon
    property string value
    property bool selected: false
    readonly property color ink: lit ? Theme.onAccent : available ? Theme.t1 : Theme.t3

    name: text
    hint: detail
    implicitHeight: detail === "" ? 44 : 60
    implicitWidth: 272

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: root.lit ? Theme.accent : root.selected ? Theme.fill2 : root.hovered ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
    }
    Icon {
        id: drawing
        x: 14
        anchors.verticalCenter: parent.verticalCenter
        visible: root.icon !== ""
        name: root.icon
        size: 20
        color: root.lit ? Theme.onAccent : Theme.t2
    }
    Column {
        x: root.icon === "" ? 14 : 46
        width: root.width - x - (root.value === "" ? 14 : amount.width + 26)
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2
        Label {
            width: parent.width
            text: root.text
            font.weight: root.selected ? 600 : 500
            color: root.ink
        }
        Label {
            visible: root.detail !== ""
            width: parent.width
            text: root.detail
            size: 13.5
            color: root.lit ? Theme.onAccent : Theme.t2
        }
    }
    Label {
        id: amount
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        text: root.value
        size: 14
        color: root.lit ? Theme.onAccent : Theme.t3
    }
}
