import QtQuick
import Velko

/// The choice of an era.
Row {
    id: root
    required property ConsoleListModel consoles

    spacing: 4
    Accessible.role: Accessible.PageTabList
    Accessible.name: Tr.translate("Years")
    Repeater {
        model: root.consoles.eraTexts
        Pressable {
            id: chip
            required property int index
            required property string modelData
            readonly property bool on: root.consoles.era === index

            name: modelData
            role: Accessible.RadioButton
            Accessible.checkable: true
            Accessible.checked: on
            width: text.implicitWidth + 36
            height: 44
            onActivated: root.consoles.era = index

            Rectangle {
                anchors.fill: parent
                radius: 22
                color: chip.lit ? Theme.accent : chip.on ? Theme.fill2 : chip.hovered ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
            }
            Label {
                id: text
                anchors.centerIn: parent
                text: chip.modelData
                font.weight: chip.on ? 600 : 500
                color: chip.lit ? Theme.onAccent : chip.on ? Theme.t1 : Theme.t2
            }
        }
    }
}
