import QtQuick
import Velko

/// The folders that games come from, and the way to add another.
Card {
    id: root
    required property LibraryStore library
    required property HomeFacts home
    readonly property bool low: height < 160
    signal folderWanted

    Row {
        x: 24
        y: root.low ? 16 : 22
        spacing: 12
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: "folder"
            size: 21
            color: Theme.t2
        }
        Label {
            text: Tr.translate("Folders of games")
            size: 17
            font.weight: 600
        }
    }
    Label {
        x: 57
        y: root.low ? 48 : 54
        width: parent.width - 81
        text: root.home.folders === "" ? Tr.translate("None yet") : root.home.folders
        color: Theme.t2
        size: 14.5
        elide: Text.ElideMiddle
        maximumLineCount: root.height >= 200 ? 3 : 1
    }
    Row {
        x: 24
        y: parent.height - height - (root.low ? 14 : 22)
        spacing: 10
        TextButton {
            id: add
            size: 44
            textSize: 14.5
            icon: "plus"
            text: Tr.translate("Add a folder")
            onActivated: root.folderWanted()
        }
        TextButton {
            size: 44
            textSize: 14.5
            kind: "ghost"
            icon: "update"
            name: Tr.translate("Look again")
            text: look.implicitWidth < root.width - 48 - add.width - 74 ? name : "" // the icon alone when it gets narrow
            Label {
                id: look
                visible: false
                text: parent.name
                size: 14.5
                font.weight: 600
            }
            visible: root.library.romFolders.length > 0
            available: !root.library.scanning
            onActivated: root.library.scan([])
        }
    }
}
