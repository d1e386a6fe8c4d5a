import QtQuick
import Velko

/// Where the game lies and what belongs to it.
Card {
    id: root
    required property GameFacts game
    signal removalWanted
    signal renameWanted

    implicitHeight: rows.height + buttons.height + 76
    Component.onCompleted: root.game.measure()

    Column {
        id: rows
        x: 28
        y: 20
        width: parent.width - 56
        Repeater {
            model: [
                { text: Tr.translate("File"), value: root.game.path }, { text: Tr.translate("Size"), value: root.game.size },
                { text: Tr.translate("Console"), value: root.game.consoleName },
                { text: Tr.translate("Emulator"), value: root.game.emulator }, { text: Tr.translate("Added"), value: root.game.added }
            ]
            Item {
                id: fact
                required property var modelData
                required property int index
                width: rows.width
                height: Math.max(52, value.height + 28)
                Rectangle {
                    visible: fact.index > 0
                    width: parent.width
                    height: 1
                    color: Theme.line
                }
                Label {
                    width: 130
                    anchors.verticalCenter: parent.verticalCenter
                    text: fact.modelData.text
                    color: Theme.t2
                }
                Label {
                    id: value
                    x: 146
                    width: parent.width - x
                    anchors.verticalCenter: parent.verticalCenter
                    text: fact.modelData.value
                    wrapMode: Text.WrapAnywhere
                    maximumLineCount: 4
                }
            }
        }
    }
    Flow {
        id: buttons
        x: 28
        y: rows.y + rows.height + 24
        width: parent.width - 56
        spacing: 12
        TextButton {
            icon: "folder"
            text: Tr.translate("Show in folder")
            onActivated: root.game.showInFolder()
        }
        TextButton {
            text: Tr.translate("Rename")
            onActivated: root.renameWanted()
        }
        TextButton {
            icon: "trash"
            text: Tr.translate("Remove from library")
            onActivated: root.removalWanted()
        }
    }
}
