import QtQuick
import Velko

/// The game to go on with.
FocusScope {
    id: root
    required property GameFacts game
    readonly property real edge: height >= 400 ? 48 : 32
    readonly property real coverHeight: height - 2 * edge
    readonly property real coverWidth: Math.min(coverHeight / game.ratio, coverHeight * 0.75)
    signal opened

    Pad.back: game.launching ? Tr.translate("Cancel") : ""
    Pad.favorite: game.favorite ? Tr.translate("Remove from favorites") : Tr.translate("Favorite")
    Pad.details: Tr.translate("Details")
    Pad.onFavoritePressed: root.game.toggleFavorite()
    Pad.onDetailsPressed: root.opened()

    Backdrop {
        anchors.fill: parent
        consoleID: root.game.consoleID
    }
    Pressable {
        id: picture
        x: root.edge
        y: root.height - root.edge - height
        width: Math.round(root.coverWidth)
        height: Math.round(root.coverWidth * root.game.ratio)
        name: Tr.fill("Open the page of %@", [root.game.title])
        onActivated: root.opened()
        Cover {
            anchors.fill: parent
            cover: root.game.cover
            consoleID: root.game.consoleID
            favorite: root.game.favorite
            playing: root.game.running
            radius: 12
        }
        FocusRing {
            visible: picture.lit
            radiusInside: 12
        }
    }
    Column {
        x: picture.x + picture.width + root.edge
        y: root.height - root.edge - height
        width: Math.min(820, root.width - x - root.edge)
        Row {
            spacing: 12
            bottomPadding: 18
            Tag { text: root.game.consoleShort }
            Tag {
                visible: root.game.statusText !== ""
                text: root.game.statusText
                dot: root.game.statusDot
            }
        }
        Heading {
            width: parent.width
            text: root.game.title
            size: root.width >= 1000 ? 58 : root.width >= 700 ? 46 : 34
            font.weight: 700
            lineHeight: 0.9
            wrapMode: Text.Wrap
            maximumLineCount: 2
            bottomPadding: 14
        }
        PlayedLine {
            width: parent.width
            game: root.game
            bottomPadding: root.height >= 360 ? 34 : 22
        }
        PlayButtons {
            width: parent.width
            focus: true
            game: root.game
            size: 52
        }
    }
}
