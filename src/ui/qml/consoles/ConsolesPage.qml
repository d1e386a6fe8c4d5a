import QtQuick
import Velko

/// The catalog, or the page of the console that was chosen in it.
FocusScope {
    id: root
    focus: true
    required property AppState app
    required property LibraryStore library
    required property FocusKeeper keeper
    required property LibraryLists lists
    required property BiosFacts bios
    readonly property bool open: app.selectedConsole !== ""
    signal folderWanted
    signal emulatorWanted(string emulatorID)
    signal filesWanted

    ConsoleCatalog {
        anchors.fill: parent
        visible: !root.open
        focus: !root.open
        app: root.app
        lists: root.lists
    }
    Loader {
        anchors.fill: parent
        active: root.open
        focus: root.open
        sourceComponent: ConsolePage {
            app: root.app
            library: root.library
            keeper: root.keeper
            lists: root.lists
            bios: root.bios
            onFolderWanted: root.folderWanted()
            onFilesWanted: root.filesWanted()
            onEmulatorWanted: emulatorID => root.emulatorWanted(emulatorID)
        }
        onLoaded: if (root.visible) (item as Item).forceActiveFocus()
    }
}
