import QtQuick
import Velko

/// One setting: icon, name, an optional explanation, and its control at the right. With `checkable` the whole row is
/// the switch. A row without a control is still reachable, so that its explanation can be read.
Pressable {
    id: root
    property string icon
    property string text
    property string detail
    property bool checkable: false
    property bool checked: false
    property bool first: false ///< no line above it
    property bool busy: false ///< what it says is being found out
    property real controlWidth: checkable ? 52 : control.childrenRect.width
    property bool sideways: checkable && available ///< left and right stay in it: they change its value
    default property alias control: control.data

    name: text
    hint: detail
    role: checkable ? Accessible.CheckBox : Accessible.StaticText
    Accessible.checkable: checkable
    Accessible.checked: checked
    implicitHeight: Math.max(76, words.height + 32)
    Keys.onLeftPressed: event => {
        event.accepted = root.sideways
        if (root.checkable && event.accepted && root.checked) root.activated()
    }
    Keys.onRightPressed: event => {
        event.accepted = root.sideways
        if (root.checkable && event.accepted && !root.checked) root.activated()
    }

    Rectangle {
        visible: !root.first && !root.lit
        width: parent.width
        height: 1
        color: Theme.line
    }
    Rectangle {
        visible: root.lit
        anchors.fill: parent
        anchors.leftMargin: -14
        anchors.rightMargin: -14
        anchors.topMargin: 2
        anchors.bottomMargin: 2
        radius: 16
        color: Theme.fill1
        border.width: 3
        border.color: Theme.accent
    }
    Icon {
        x: 4
        anchors.verticalCenter: parent.verticalCenter
        visible: !root.busy
        name: root.icon
        size: 23
        color: root.available ? Theme.t2 : Theme.t3
    }
    Loader {
        x: 4
        anchors.verticalCenter: parent.verticalCenter
        active: root.busy
        sourceComponent: Spinner { size: 23 }
    }
    Column {
        id: words
        x: 52
        width: root.width - 52 - root.controlWidth - 20
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2
        Label {
            width: parent.width
            text: root.text
            size: 16
            font.weight: 600
            color: root.available ? Theme.t1 : Theme.t3
        }
        Label {
            visible: root.detail !== ""
            width: parent.width
            text: root.detail
            size: 14
            color: root.available ? Theme.t2 : Theme.t3
            wrapMode: Text.Wrap
            maximumLineCount: 3
        }
    }
    Toggle {
        visible: root.checkable
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        activeFocusOnTab: false
        enabled: false
        available: root.available
        checked: root.checked
    }
    Item {
        id: control
        anchors.right: parent.right
        anchors.rightMargin: 4
        width: root.controlWidth
        height: parent.height
    }
}
