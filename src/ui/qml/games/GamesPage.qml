import QtQuick
import Velko

/// The library: filters at the left, covers at the right.
FocusScope {
    id: root
    focus: true
    required property AppState app
    required property FocusKeeper keeper
    required property LibraryLists lists
    readonly property GameListModel games: lists.games
    readonly property int edge: width >= 1600 ? 40 : width >= 1100 ? 32 : 24
    readonly property bool narrow: width < 1100
    property bool sorting: false
    signal folderWanted

    FocusScope {
        anchors.fill: parent
        enabled: !root.sorting
        focus: !root.sorting

        Sidebar {
            id: sidebar
            x: root.edge
            y: 16
            width: root.narrow ? 232 : 272
            height: parent.height - y
            app: root.app
            keeper: root.keeper
            lists: root.lists
            onSearched: grid.forceActiveFocus(Qt.OtherFocusReason)
        }
        FocusScope {
            id: main
            x: sidebar.x + sidebar.width + (root.narrow ? 32 : 48)
            y: 16
            width: parent.width - x - root.edge
            height: parent.height - y
            focus: true

            Heading {
                id: heading
                y: 10
                width: Math.min(implicitWidth, buttons.x - amount.implicitWidth - 40)
                text: root.games.heading
                size: 34
            }
            Label {
                id: amount
                x: heading.width + 16
                anchors.baseline: heading.baseline
                text: root.games.countText
                color: Theme.t2
            }
            Row {
                id: buttons
                x: grid.linesWidth - width
                y: 8
                spacing: 12
                TextButton {
                    id: order
                    round: true
                    size: 44
                    textSize: 15
                    icon: "sort"
                    text: root.games.sortText
                    hint: Tr.translate("Sort by")
                    onActivated: root.sorting = true
                }
                TextButton {
                    round: true
                    size: 44
                    textSize: 15
                    icon: "plus"
                    text: main.width < 620 ? "" : Tr.translate("Add games")
                    name: Tr.translate("Add games")
                    onActivated: root.folderWanted()
                }
            }
            GameGrid {
                id: grid
                x: -edge
                y: 60
                width: parent.width + edge + trailing
                height: parent.height - y
                focus: count > 0
                games: root.games
                above: order
                remembered: root.lists.currentGame
                onArrived: gameID => root.lists.currentGame = gameID
                onOpened: gameID => root.app.detailGame = gameID
                onFavoriteToggled: gameID => root.lists.toggleFavorite(gameID)
                onTyped: text => sidebar.search(text)
            }
            Item {
                x: parent.width + root.edge - 4
                y: grid.y
                height: grid.height
                ScrollHandle { view: grid }
            }
            EmptyState {
                visible: root.games.count === 0
                focus: visible
                anchors.horizontalCenter: parent.horizontalCenter
                y: Math.max(80, (parent.height - height) * 0.4)
                width: Math.min(760, parent.width)
                icon: root.games.emptyIcon
                title: root.games.emptyTitle
                text: root.games.emptyText
                action: root.games.narrowed ? Tr.translate("Show all games") : Tr.translate("Add games")
                actionIcon: root.games.narrowed ? "grid" : "plus"
                onActivated: root.games.narrowed ? root.lists.showAllGames() : root.folderWanted()
            }
        }
    }
    Loader {
        anchors.fill: parent
        active: root.sorting
        focus: root.sorting
        sourceComponent: SortMenu {
            lists: root.lists
            games: root.games
            corner: order.mapToItem(root, order.width, order.height + 8)
            onClosed: root.sorting = false
        }
        onLoaded: (item as Item).forceActiveFocus()
    }
}
