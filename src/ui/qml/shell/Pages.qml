import QtQuick
import Velko

/// The pages of the six tabs, each made when it is first shown, and the game page above them.
FocusScope {
    id: root
    required property AppState app
    required property LibraryStore library
    required property LibraryLists lists
    required property FocusKeeper keeper
    required property HomeFacts home
    required property GameFacts openGame
    required property EmulatorFacts gameEmulator
    required property LibraryAlerts alerts
    required property BiosFacts bios
    required property ProfileFacts profile
    required property ScreenshotGallery gallery
    readonly property bool gameShown: app.detailGame !== "" && openGame.exists
    signal folderWanted
    signal emulatorWanted(string emulatorID)
    signal filesWanted
    signal removalWanted
    signal renameWanted

    Repeater {
        model: [
            { name: "home", page: "../home/HomePage.qml",
              parts: { app: root.app, library: root.library, keeper: root.keeper, home: root.home, alerts: root.alerts } },
            { name: "games", page: "../games/GamesPage.qml",
              parts: { app: root.app, keeper: root.keeper, lists: root.lists } },
            { name: "consoles", page: "../consoles/ConsolesPage.qml",
              parts: { app: root.app, library: root.library, keeper: root.keeper, lists: root.lists, bios: root.bios } },
            { name: "essentials", page: "LaterPage.qml", parts: { title: "Essentials", icon: "tools",
              text: "Installing and updating emulators from here comes with a later version. Emulators that are installed on this computer are found by themselves." } },
            { name: "profile", page: "../profile/ProfilePage.qml",
              parts: { app: root.app, keeper: root.keeper, profile: root.profile, gallery: root.gallery } },
            { name: "social", page: "LaterPage.qml", parts: { title: "Social", icon: "social",
              text: "There is nothing to share with others in this version of Velko yet." } }
        ]
        TabPage {
            required property var modelData
            app: root.app
            name: modelData.name
            page: Qt.resolvedUrl(modelData.page)
            parts: modelData.parts
            covered: root.gameShown
            onFolderWanted: root.folderWanted()
            onFilesWanted: root.filesWanted()
            onEmulatorWanted: emulatorID => root.emulatorWanted(emulatorID)
        }
    }
    Loader {
        id: gamePage
        anchors.fill: parent
        active: root.gameShown
        focus: root.gameShown
        Component.onCompleted: setSource("../game/GamePage.qml", { app: root.app, keeper: root.keeper, lists: root.lists,
            game: root.openGame, emulator: root.gameEmulator })
        onLoaded: (item as Item).forceActiveFocus()
    }
    Connections {
        target: gamePage.item
        ignoreUnknownSignals: true
        function onRemovalWanted() { root.removalWanted() }
        function onRenameWanted() { root.renameWanted() }
    }
}
