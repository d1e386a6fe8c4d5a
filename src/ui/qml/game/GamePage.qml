import QtQuick
import Velko

/// Everything about one game.
ScrollPage {
    id: root
    required property AppState app
    required property LibraryLists lists
    required property GameFacts game
    required property EmulatorFacts emulator
    readonly property int coverWidth: Theme.contentWidth >= 1500 ? 360 : Theme.contentWidth >= 1000 ? 264 : 200
    readonly property int sideGap: Theme.contentWidth >= 1500 ? 64 : 40
    signal removalWanted
    signal renameWanted

    behind: Backdrop {
        x: root.width * 0.36
        y: -80
        width: root.width - x
        height: 620
        radius: 0
        ground: "transparent"
        fading: true
        consoleID: root.game.consoleID
    }
    contentHeight: Math.max(side.y + side.height, right.y + right.height) + 48
    Pad.back: game.launching ? Tr.translate("Cancel") : Tr.translate("Back")
    Pad.favorite: game.favorite ? Tr.translate("Remove from favorites") : Tr.translate("Favorite")
    Pad.games: Theme.inputMode === "pad" && app.detailGame !== "" && lists.gameBeside(-1) + lists.gameBeside(1) !== ""
        ? Tr.translate("Previous / next game") : ""
    Pad.onFavoritePressed: root.game.toggleFavorite()
    Pad.onGamePressed: by => root.lists.stepGame(by)
    Keys.onEscapePressed: root.app.detailGame = ""
    Keys.onBackPressed: root.app.detailGame = ""

    Item {
        x: Theme.contentX
        width: Theme.contentWidth

        TextButton {
            x: -16
            y: 12
            size: 40
            kind: "ghost"
            icon: "back"
            text: Tr.translate("Back")
            onActivated: root.app.detailGame = ""
        }
        GameSide {
            id: side
            y: 84
            width: root.coverWidth
            game: root.game
        }
        Column {
            id: right
            x: root.coverWidth + root.sideGap
            y: Theme.contentWidth >= 1500 ? 126 : 92
            width: parent.width - x

            Row {
                spacing: 12
                Tag { text: root.game.consoleShort }
                Tag {
                    visible: root.game.emulator !== ""
                    text: root.game.emulator
                    dot: root.game.emulatorDot
                }
            }
            Heading {
                topPadding: 14
                width: parent.width
                text: root.game.title
                size: Theme.contentWidth >= 1500 ? 68 : Theme.contentWidth >= 1000 ? 52 : 36
                font.weight: 700
                lineHeight: 0.9
                wrapMode: Text.Wrap
                maximumLineCount: 2
            }
            PlayedLine {
                topPadding: 12
                width: parent.width
                game: root.game
            }
            Item {
                width: parent.width
                height: 30
            }
            PlayButtons {
                width: parent.width
                focus: true
                game: root.game
            }
            GameTabs {
                width: parent.width
                game: root.game
                emulator: root.emulator
                onRemovalWanted: root.removalWanted()
                onRenameWanted: root.renameWanted()
            }
        }
    }
}
