import QtQuick
import Velko

/// A choice among a few. `options`: a list of { value, text, dot, icon }; the left and right keys move inside it.
FocusScope {
    id: root
    required property var options
    property string value
    property string name ///< spoken by screen readers
    property bool available: true
    property bool reachable: true ///< false: a row around it has the focus and the keys
    signal chosen(string value)

    implicitHeight: 48
    implicitWidth: 400
    Accessible.role: Accessible.PageTabList
    Accessible.name: root.name

    Rectangle {
        anchors.fill: parent
        radius: 14
        color: Theme.sunken
    }
    Row {
        x: 4
        y: 4
        spacing: 4
        Repeater {
            model: root.options
            Pressable {
                id: option
                required property var modelData
                required property int index
                readonly property bool on: modelData.value === root.value

                name: modelData.text
                role: Accessible.RadioButton
                Accessible.checkable: true
                Accessible.checked: on
                available: root.available
                focus: root.reachable && (on || (root.value === "" && index === 0))
                activeFocusOnTab: root.reachable
                width: (root.width - 8 - 4 * (root.options.length - 1)) / root.options.length
                height: root.height - 8
                onActivated: root.chosen(modelData.value)

                Rectangle {
                    anchors.fill: parent
                    radius: 10
                    color: option.lit ? Theme.accent : option.on ? Theme.fill3 : option.hovered ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
                }
                Row {
                    anchors.centerIn: parent
                    spacing: 8
                    StatusDot {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: option.on && option.modelData.dot !== undefined && !option.lit
                        kind: option.modelData.dot ?? ""
                    }
                    Icon {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: name !== ""
                        name: option.modelData.icon ?? ""
                        size: 18
                        color: option.lit ? Theme.onAccent : option.on ? Theme.t1 : Theme.t2
                    }
                    Label {
                        anchors.verticalCenter: parent.verticalCenter
                        text: option.modelData.text
                        size: 14.5
                        width: Math.min(implicitWidth, option.width - 12)
                        font.weight: option.on ? 600 : 500
                        color: option.lit ? Theme.onAccent : option.on ? Theme.t1 : Theme.t2
                        opacity: root.available ? 1 : 0.5
                    }
                }
            }
        }
    }
}
