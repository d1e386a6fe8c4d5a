import QtQuick
import Velko

/// Chooses a folder of games, or files: places at the left, what is in the open folder at the right.
Sheet {
    id: root
    required property FolderList folders
    property bool files: false
    property string what ///< what the files are
    /// Back leads up to where the choice began, and from there out of it.
    readonly property bool inside: folders.parentFolder !== "" && folders.folder !== folders.places[0]?.path
    signal chosen(string path)
    signal filesChosen(var paths)

    title: files ? Tr.fill("Choose files: %@", [what]) : Tr.translate("Add a folder of games")
    panelWidth: 920
    panelHeight: 660
    Component.onCompleted: root.folders.begin(root.files)
    Pad.back: root.inside ? Tr.translate("Up one folder") : Tr.translate("Close")
    Keys.onBackPressed: event => {
        event.accepted = root.inside
        if (event.accepted) root.folders.open(root.folders.parentFolder)
    }

    Row {
        width: root.body.width
        height: root.body.height - 76
        spacing: 24
        ListView {
            id: placeList
            width: 220
            height: parent.height
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.folders.places
            delegate: ListRow {
                required property var modelData
                width: placeList.width
                text: modelData.name
                icon: modelData.icon
                selected: root.folders.folder === modelData.path
                onActivated: root.folders.open(modelData.path)
            }
        }
        Column {
            width: parent.width - 244
            spacing: 10
            Row {
                width: parent.width
                spacing: 8
                TextButton {
                    icon: "up"
                    size: 40
                    kind: "ghost"
                    name: Tr.translate("Up one folder")
                    available: root.folders.parentFolder !== ""
                    onActivated: root.folders.open(root.folders.parentFolder)
                }
                Label {
                    height: 40
                    width: parent.width - 48
                    verticalAlignment: Text.AlignVCenter
                    text: root.folders.folderName
                    elide: Text.ElideLeft
                    font.weight: 600
                }
            }
            Rectangle {
                width: parent.width
                height: root.body.height - 126
                radius: 14
                color: Theme.sunken
                border.width: list.lit && list.count === 0 ? 3 : 0
                border.color: Theme.accent
                Label {
                    anchors.centerIn: parent
                    width: parent.width - 48
                    horizontalAlignment: Text.AlignHCenter
                    text: root.folders.emptyText
                    color: Theme.t2
                    wrapMode: Text.Wrap
                }
                ListView {
                    id: list
                    readonly property bool lit: activeFocus && Theme.inputMode !== "pointer"
                    anchors.fill: parent
                    anchors.margins: 8
                    clip: true
                    focus: true
                    activeFocusOnTab: true
                    boundsBehavior: Flickable.StopAtBounds
                    reuseItems: true
                    model: root.folders
                    Accessible.role: Accessible.List
                    Accessible.name: root.folders.folderName
                    Connections {
                        target: root.folders
                        function onListed() { list.currentIndex = root.folders.startRow }
                    }
                    Pad.confirm: count === 0 ? "" : (currentItem as FolderRow)?.file ? Tr.translate("Choose") : Tr.translate("Open")
                    // Not "Cancel", which is nearer.
                    KeyNavigation.down: take.available ? take : null
                    KeyNavigation.priority: KeyNavigation.AfterItem
                    Keys.onReturnPressed: (currentItem as FolderRow)?.activated()
                    Keys.onEnterPressed: (currentItem as FolderRow)?.activated()
                    delegate: FolderRow {
                        width: list.width
                        marked: ListView.isCurrentItem && list.lit
                        onActivated: file ? root.folders.toggle(path) : root.folders.open(path)
                    }
                }
                ScrollHandle { view: list }
            }
        }
    }
    Row {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        spacing: 12
        TextButton {
            size: 52
            textSize: 15.5
            kind: "ghost"
            text: Tr.translate("Cancel")
            onActivated: root.closed()
        }
        TextButton {
            id: take
            size: 52
            textSize: 15.5
            kind: "primary"
            text: !root.files ? Tr.translate("Add this folder")
                : root.folders.marked.length < 2 ? Tr.translate("Take this file") : Tr.fill("Take %ld files", [root.folders.marked.length])
            available: root.files ? root.folders.marked.length > 0 : root.folders.folder !== "/"
            onActivated: root.files ? root.filesChosen(root.folders.marked) : root.chosen(root.folders.folder)
        }
    }
}
