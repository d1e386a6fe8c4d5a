import QtQuick
import Velko

/// A setting with a few values: the left and right keys change it, the confirm key goes on to the next one.
SettingRow {
    id: root
    required property var options ///< a list of { value, text }
    property string value
    readonly property int at: options.findIndex(option => option.value === value)
    signal chosen(string value)

    function step(to) { if (options[to] !== undefined) root.chosen(options[to].value) }

    role: Accessible.ComboBox
    name: text + ", " + (options[at]?.text ?? "")
    tappable: false
    sideways: true
    Pad.confirm: Tr.translate("Change")
    implicitHeight: 92
    controlWidth: Math.min(400, width * 0.5)
    Keys.onLeftPressed: root.step(root.at - 1)
    Keys.onRightPressed: root.step(root.at + 1)
    onActivated: root.step((root.at + 1) % root.options.length)

    SegmentedControl {
        width: root.controlWidth
        anchors.verticalCenter: parent.verticalCenter
        reachable: false
        name: root.text
        value: root.value
        options: root.options
        onChosen: value => {
            root.forceActiveFocus(Qt.MouseFocusReason)
            root.chosen(value)
        }
    }
}
