import QtQuick
import Velko

/// The set-up panel of one emulator above the window.
Sheet {
    id: root
    required property EmulatorFacts emulator
    required property FocusKeeper keeper
    signal systemFilesWanted(string consoleID)

    title: root.emulator.name
    panelWidth: 880
    panelHeight: Math.max(360, panel.height + 150)

    ScrollPage {
        x: -20
        width: root.body.width + 40
        height: root.body.height + 20
        focus: true
        keeper: root.keeper
        ground: Theme.overlay
        contentHeight: panel.height + 24
        SetupPanel {
            id: panel
            x: 20
            width: root.body.width
            emulator: root.emulator
            systemFilesButton: true
            onSystemFilesWanted: root.systemFilesWanted(root.emulator.systemFilesConsole)
        }
    }
}
