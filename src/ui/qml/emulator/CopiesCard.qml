import QtQuick
import Velko

/// The copies of one emulator on this machine, and which of them is used.
Card {
    id: root
    required property EmulatorFacts emulator
    readonly property bool several: emulator.copies.length > 1

    implicitHeight: rows.height + 44

    Column {
        id: rows
        x: 28
        y: 22
        width: parent.width - 56
        spacing: 4
        Heading {
            width: parent.width
            bottomPadding: 8
            text: root.several ? Tr.fill("Which %@ to use", [root.emulator.name]) : root.emulator.name
            size: 17
            font.weight: 600
        }
        Repeater {
            model: root.emulator.copies
            ListRow {
                required property var modelData
                x: -14 // its text stands below the heading
                width: rows.width + 28
                activeFocusOnTab: root.several
                tappable: root.several
                role: root.several ? Accessible.RadioButton : Accessible.StaticText
                Accessible.checkable: root.several
                Accessible.checked: modelData.chosen
                text: modelData.text
                detail: modelData.place
                icon: root.several && modelData.chosen ? "check" : ""
                dot: root.several && modelData.chosen ? "" : modelData.chosen ? "ok" : "off"
                selected: root.several && modelData.chosen
                onActivated: root.emulator.choose(modelData.path)
            }
        }
    }
}
