import QtQuick
import Velko

/// What holds for all games.
Sheet {
    id: root
    required property PlaySettings settings
    required property FocusKeeper keeper

    title: Tr.translate("Settings")
    panelWidth: 880
    panelHeight: rows.height + 150

    ScrollPage {
        x: -20
        width: root.body.width + 40
        height: root.body.height + 20
        focus: true
        keeper: root.keeper
        ground: Theme.overlay
        contentHeight: rows.height + 24
        Column {
            id: rows
            x: 20
            width: root.body.width
            ChoiceRow {
                width: parent.width
                focus: true
                first: true
                icon: "quality"
                text: Tr.translate("Quality")
                detail: Tr.translate("For games that have no quality of their own.")
                options: [
                    { value: "minimum", text: Tr.translate("Minimum") }, { value: "medium", text: Tr.translate("Medium") },
                    { value: "maximum", text: Tr.translate("Maximum") }
                ]
                value: root.settings.quality
                onChosen: value => root.settings.quality = value
            }
            SettingRow {
                width: parent.width
                icon: "gauge"
                text: Tr.translate("60 FPS")
                detail: Tr.translate("For games whose settings you haven't changed, where there is a way.")
                checkable: true
                checked: root.settings.fps60
                onActivated: root.settings.fps60 = !root.settings.fps60
            }
            ChoiceRow {
                width: parent.width
                icon: "display"
                text: Tr.translate("Screen for games")
                detail: Tr.translate("The screen that a game opens on when two are connected.")
                controlWidth: Math.min(480, width * 0.55)
                options: root.settings.screens
                value: root.settings.screen
                onChosen: value => root.settings.screen = value
            }
            SettingRow {
                width: parent.width
                icon: "controller"
                text: Tr.translate("Set up the controller before each game")
                detail: Tr.translate("PCSX2 and DuckStation.")
                checkable: true
                checked: root.settings.setsUpController
                onActivated: root.settings.setsUpController = !root.settings.setsUpController
            }
        }
    }
}
