import QtQuick
import Velko

/// With what and how the game is played.
Card {
    id: root
    required property GameFacts game

    implicitHeight: rows.height + 20

    Column {
        id: rows
        x: 24
        y: 10
        width: parent.width - 48
        SettingRow {
            width: parent.width
            first: true
            icon: "console"
            text: root.game.emulator
            detail: root.game.emulatorKind !== "" ? root.game.emulatorKind + ", " + root.game.emulatorPath : root.game.consoleNote
            controlWidth: 0
        }
        SettingRow {
            id: qualityRow
            width: parent.width
            implicitHeight: 92
            icon: "quality"
            text: Tr.translate("Quality")
            controlWidth: Math.min(400, rows.width * 0.5)
            SegmentedControl {
                width: qualityRow.controlWidth
                height: 48
                anchors.verticalCenter: parent.verticalCenter
                name: Tr.translate("Quality")
                value: root.game.quality
                options: [
                    { value: "minimum", text: Tr.translate("Minimum") }, { value: "medium", text: Tr.translate("Medium") },
                    { value: "maximum", text: Tr.translate("Maximum") }
                ]
                onChosen: value => root.game.quality = value
            }
        }
        SettingRow {
            width: parent.width
            icon: "eye"
            text: Tr.translate("Show FPS")
            checkable: true
            checked: root.game.showFPS
            onActivated: root.game.showFPS = !root.game.showFPS
        }
        SettingRow {
            width: parent.width
            icon: "fullscreen"
            text: Tr.translate("Start the game in full screen")
            checkable: true
            checked: root.game.fullScreen
            onActivated: root.game.fullScreen = !root.game.fullScreen
        }
    }
}
