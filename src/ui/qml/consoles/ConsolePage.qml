import QtQuick
import Velko

/// One console: its games at the left, what they need at the right.
FocusScope {
    id: root
    required property AppState app
    required property LibraryStore library
    required property FocusKeeper keeper
    required property LibraryLists lists
    required property BiosFacts bios
    readonly property ConsoleFacts facts: lists.console
    readonly property int sideWidth: Theme.contentWidth >= 1500 ? 464 : Theme.contentWidth >= 1000 ? 360 : 288
    readonly property int sideGap: Theme.contentWidth >= 1500 ? 60 : 40
    property bool sorting: false
    signal folderWanted
    signal emulatorWanted(string emulatorID)
    signal filesWanted

    Pad.back: Tr.translate("Back")
    Keys.onEscapePressed: root.app.selectedConsole = ""
    Keys.onBackPressed: root.app.selectedConsole = ""

    FocusScope {
        anchors.fill: parent
        enabled: !root.sorting
        focus: !root.sorting
        clip: true // what scrolls ends below the top bar

        GameGrid {
            id: grid
            x: Theme.contentX - edge
            width: Theme.contentWidth - root.sideWidth - root.sideGap + edge + trailing
            height: parent.height
            focus: count > 0
            topSpace: head.height
            games: root.lists.consoleGames
            above: head.orderButton
            remembered: root.lists.currentConsoleGame
            onArrived: gameID => root.lists.currentConsoleGame = gameID
            onOpened: gameID => root.app.detailGame = gameID
            onFavoriteToggled: gameID => root.lists.toggleFavorite(gameID)
        }
        ConsoleHead {
            id: head
            x: Theme.contentX
            y: grid.originY - grid.contentY
            width: grid.linesWidth
            lists: root.lists
            onBackWanted: root.app.selectedConsole = ""
            onOrderWanted: root.sorting = true
        }
        Label {
            visible: grid.count === 0
            x: Theme.contentX
            y: head.height + 8
            width: grid.room
            text: root.facts.takesGames ? Tr.translate("None yet. Add a folder, or drop a game at the right.") : Tr.translate("There is no way to play them yet.")
            size: 16.5
            color: Theme.t2
            wrapMode: Text.Wrap
        }
        Item {
            x: root.width - 4
            height: parent.height
            ScrollHandle { view: grid }
        }
        ScrollPage {
            x: Theme.contentX + Theme.contentWidth - root.sideWidth - 10
            width: root.sideWidth + 26
            height: parent.height
            focus: grid.count === 0
            clip: true
            keeper: root.keeper
            contentHeight: cards.height + 56

            Column {
                id: cards
                x: 10
                y: 16
                width: root.sideWidth
                spacing: 24
                DropCard {
                    visible: root.facts.takesGames
                    focus: visible
                    width: parent.width
                    facts: root.facts
                    onActivated: root.folderWanted()
                }
                Card {
                    visible: root.facts.note !== ""
                    width: parent.width
                    height: note.height + 44
                    Icon {
                        x: 24
                        y: 22
                        name: "info"
                        size: 22
                        color: Theme.t2
                    }
                    Label {
                        id: note
                        x: 58
                        y: 22
                        width: parent.width - x - 24
                        text: root.facts.note
                        wrapMode: Text.Wrap
                        lineHeight: 1.3
                    }
                }
                EmulatorCard {
                    visible: root.facts.hasEmulators && root.facts.emulators.count > 0
                    width: parent.width
                    facts: root.facts
                    onEmulatorWanted: emulatorID => root.emulatorWanted(emulatorID)
                }
                BiosCard {
                    visible: root.bios.label !== ""
                    width: parent.width
                    facts: root.bios
                    onFilesWanted: root.filesWanted()
                }
            }
        }
    }
    Loader {
        anchors.fill: parent
        active: root.sorting
        focus: root.sorting
        sourceComponent: SortMenu {
            lists: root.lists
            games: root.lists.consoleGames
            corner: head.orderButton.mapToItem(root, head.orderButton.width, head.orderButton.height + 8)
            onClosed: root.sorting = false
        }
        onLoaded: (item as Item).forceActiveFocus()
    }
}
