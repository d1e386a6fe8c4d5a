import QtQuick
import Velko

/// A filter with its number of games, or the title above some of them.
Item {
    id: root
    required property bool heading
    required property string filter
    required property string text
    required property string countText
    required property string icon
    required property string dot
    required property string shortName
    property string chosen ///< the filter that is on
    readonly property bool on: filter === chosen && !heading
    signal picked(string filter)

    height: heading ? 45 : 40

    Label {
        visible: root.heading
        x: 12
        y: 20
        width: root.width - 24
        text: root.text
        size: 13
        font.weight: 600
        font.letterSpacing: 0.5
        color: Theme.t3
    }
    Pressable {
        id: button
        readonly property color ink: lit ? Theme.onAccent : root.on ? Theme.t1 : Theme.t2
        readonly property color quietInk: lit ? Theme.onAccent : Theme.t3

        anchors.fill: parent
        visible: !root.heading
        name: root.text
        hint: root.countText
        role: Accessible.RadioButton
        Accessible.checkable: true
        Accessible.checked: root.on
        onActivated: root.picked(root.filter)

        Rectangle {
            anchors.fill: parent
            radius: 11
            color: button.lit ? Theme.accent : root.on ? Theme.fill2 : button.hovered ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
        }
        Icon {
            x: 12
            anchors.verticalCenter: parent.verticalCenter
            visible: root.icon !== ""
            name: root.icon
            size: 19
            color: button.ink
        }
        StatusDot {
            x: 17
            anchors.verticalCenter: parent.verticalCenter
            visible: root.dot !== ""
            kind: root.dot
            border.width: button.lit ? 1.5 : 0
            border.color: Theme.onAccent
        }
        Label {
            x: 12
            width: 50
            anchors.verticalCenter: parent.verticalCenter
            text: root.shortName
            size: 12.5
            font.weight: 700
            color: button.quietInk
        }
        Label {
            x: root.shortName === "" ? 43 : 70
            width: root.width - x - count.width - 24
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            font.weight: root.on ? 600 : 500
            color: button.ink
        }
        Label {
            id: count
            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            text: root.countText
            size: 14
            color: button.quietInk
        }
    }
}
