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
    required property LibraryAlerts alerts
    readonly property bool gameShown: app.detailGame !== "" && openGame.exists
    signal folderWanted
    signal removalWanted
    signal renameWanted

    TabPage {
        name: "home"
        app: root.app
        covered: root.gameShown
        page: Component {
            HomePage {
                app: root.app
                library: root.library
                keeper: root.keeper
                home: root.home
                alerts: root.alerts
                onFolderWanted: root.folderWanted()
            }
        }
    }
    TabPage {
        name: "games"
        app: root.app
        covered: root.gameShown
        page: Component {
            GamesPage {
                app: root.app
                keeper: root.keeper
                lists: root.lists
                onFolderWanted: root.folderWanted()
            }
        }
    }
    TabPage {
        name: "consoles"
        app: root.app
        covered: root.gameShown
        page: Component {
            ConsolesPage {
                app: root.app
                library: root.library
                keeper: root.keeper
                lists: root.lists
                onFolderWanted: root.folderWanted()
            }
        }
    }
    TabPage {
        name: "essentials"
        app: root.app
        covered: root.gameShown
        page: Component {
            PlainPage {
                title: Tr.translate("Essentials")
                icon: "tools"
                text: Tr.translate("Installing and updating emulators from here comes with a later version. Emulators that are installed on this computer are found by themselves.")
            }
        }
    }
    TabPage {
        name: "profile"
        app: root.app
        covered: root.gameShown
        page: Component {
            PlainPage {
                title: Tr.translate("Profile")
                icon: "profile"
                text: Tr.translate("Your statistics and screenshots come together here in a later version. Play time is counted already.")
            }
        }
    }
    TabPage {
        name: "social"
        app: root.app
        covered: root.gameShown
        page: Component {
            PlainPage {
                title: Tr.translate("Social")
                icon: "social"
                text: Tr.translate("There is nothing to share with others in this version of Velko yet.")
            }
        }
    }
    Loader {
        anchors.fill: parent
        active: root.gameShown
        focus: root.gameShown
        sourceComponent: GamePage {
            app: root.app
            keeper: root.keeper
            game: root.openGame
            onRemovalWanted: root.removalWanted()
            onRenameWanted: root.renameWanted()
        }
    }
}
