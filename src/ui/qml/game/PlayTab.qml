import QtQuick
import Velko

/// How the game is played.
Card {
    id: root
    required property GameOptions options

    implicitHeight: rows.height + 20

    Column {
        id: rows
        x: 24
        y: 10
        width: parent.width - 48
        ChoiceRow {
            visible: root.options.qualityOffered
            width: parent.width
            first: true
            icon: "quality"
            text: Tr.translate("Quality")
            detail: root.options.qualityText
            options: root.options.qualityChoices
            value: root.options.quality
            onChosen: value => root.options.quality = value
        }
        SettingRow {
            visible: !root.options.qualityOffered
            width: parent.width
            first: true
            available: false
            icon: "quality"
            text: Tr.translate("Quality")
            detail: root.options.qualityText
            controlWidth: 0
        }
        SettingRow {
            width: parent.width
            available: root.options.fps60Offered
            icon: "gauge"
            text: root.options.fps60Title
            detail: root.options.fps60Text
            checkable: true
            checked: root.options.fps60 && available
            onActivated: root.options.fps60 = !root.options.fps60
        }
        SettingRow {
            visible: root.options.downloadingPatches
            width: parent.width
            icon: "cancel"
            text: Tr.translate("Cancel the download")
            detail: Tr.translate("60 FPS stays on. Without the list the game starts as it is this time.")
            role: Accessible.Button
            onActivated: root.options.cancelDownload()
        }
        SettingRow {
            visible: !root.options.native
            width: parent.width
            available: root.options.widescreenOffered
            icon: "wide"
            text: Tr.translate("Widescreen")
            detail: root.options.widescreenText
            checkable: true
            checked: root.options.widescreen && available
            onActivated: root.options.widescreen = !root.options.widescreen
        }
        SettingRow {
            width: parent.width
            available: root.options.showFPSOffered
            icon: "eye"
            text: Tr.translate("Show FPS")
            detail: root.options.showFPSText
            checkable: true
            checked: root.options.showFPS && available
            onActivated: root.options.showFPS = !root.options.showFPS
        }
        SettingRow {
            width: parent.width
            icon: "fullscreen"
            text: Tr.translate("Start the game in full screen")
            checkable: true
            checked: root.options.fullScreen
            onActivated: root.options.fullScreen = !root.options.fullScreen
        }
    }
}
