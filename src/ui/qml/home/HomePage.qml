import QtQuick
import Velko

/// Where the user comes back to: the last game, the week, what was played and what is loved.
ScrollPage {
    id: root
    required property AppState app
    required property LibraryStore library
    required property HomeFacts home
    required property LibraryAlerts alerts
    readonly property bool wide: Theme.contentWidth >= 1040
    readonly property int sideWidth: Math.max(320, Math.min(448, Theme.contentWidth * 0.255))
    readonly property int heroHeight: Theme.windowHeight >= 1000 ? 456 : Theme.windowHeight >= 760 ? 372 : 300
    signal folderWanted

    contentHeight: all.height + 48

    Column {
        id: all
        x: Theme.contentX
        y: 16
        width: Theme.contentWidth
        spacing: 24

        AlertCards {
            width: parent.width
            library: root.library
            alerts: root.alerts
        }
        Loader {
            active: !root.home.hasGames
            visible: active
            focus: active
            width: parent.width
            height: active ? Math.max(implicitHeight, root.height - y - 64) : 0
            sourceComponent: Welcome {
                focus: true
                scanning: root.library.scanning
                onFolderWanted: root.folderWanted()
            }
        }
        Item {
            visible: root.home.hasGames
            width: parent.width
            height: visible ? (root.wide ? root.heroHeight : root.heroHeight + 24 + 216) : 0
            Hero {
                focus: root.home.hasGames
                width: root.wide ? parent.width - root.sideWidth - 32 : parent.width
                height: root.heroHeight
                game: root.home.hero
                onOpened: root.app.detailGame = root.home.hero.gameID
            }
            WeekCard {
                x: root.wide ? parent.width - width : 0
                y: root.wide ? 0 : root.heroHeight + 24
                width: root.wide ? root.sideWidth : parent.width
                height: root.wide ? (root.heroHeight - 24) / 2 : 216
                home: root.home
            }
            AddCard {
                visible: root.wide
                x: parent.width - width
                y: root.heroHeight - height
                width: root.sideWidth
                height: (root.heroHeight - 24) / 2
                library: root.library
                home: root.home
                onFolderWanted: root.folderWanted()
            }
        }
        Shelf {
            title: root.home.recentTitle
            model: root.home.recent
            width: parent.width
            onOpened: gameID => root.app.detailGame = gameID
            onFavoriteWanted: (gameID, favorite) => root.library.setFavorite(gameID, favorite)
        }
        Shelf {
            title: Tr.translate("Favorites")
            model: root.home.favorites
            width: parent.width
            onOpened: gameID => root.app.detailGame = gameID
            onFavoriteWanted: (gameID, favorite) => root.library.setFavorite(gameID, favorite)
        }
    }
}
