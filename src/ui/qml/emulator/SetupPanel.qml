import QtQuick
import Velko

/// Everything about one emulator that is set up once: the controller's guide, the copy that is used, and what Velko
/// changed in its files.
Column {
    id: root
    required property EmulatorFacts emulator
    property bool systemFilesButton: false
    signal systemFilesWanted

    spacing: 20
    GuideCard {
        first: root.systemFilesButton
        width: parent.width
        emulator: root.emulator
    }
    Card {
        visible: root.systemFilesButton && root.emulator.systemFilesConsole !== ""
        width: parent.width
        height: files.height + 16
        ListRow {
            id: files
            x: 14
            y: 8
            width: parent.width - 28
            icon: "chip"
            text: Tr.translate("System files")
            detail: Tr.translate("They are dropped or chosen on the console's page")
            onActivated: root.systemFilesWanted()
            Icon {
                anchors.right: parent.right
                anchors.rightMargin: 14
                anchors.verticalCenter: parent.verticalCenter
                name: "right"
                size: 18
                color: files.lit ? Theme.onAccent : Theme.t3
            }
        }
    }
    CopiesCard {
        visible: root.emulator.installed
        width: parent.width
        emulator: root.emulator
    }
    ChangesCard {
        visible: root.emulator.edits.length > 0 || root.emulator.putBackText !== ""
        width: parent.width
        emulator: root.emulator
    }
}
