import QtQuick
import Velko

/// A titled shelf of Home; not there while it is empty.
FocusScope {
    id: root
    property string title
    required property ShelfModel model
    signal opened(string gameID)
    signal favoriteWanted(string gameID, bool favorite)

    visible: model.count > 0
    height: visible ? 16 + 48 + row.implicitHeight : 0

    Heading {
        y: 16
        text: root.title
        font.weight: 600
    }
    ShelfRow {
        id: row
        y: 64
        width: parent.width
        height: implicitHeight
        focus: true
        gap: Theme.contentWidth >= 1040 ? 32 : 24
        coverWidth: Math.floor((Theme.contentWidth - gap * (columns - 1)) / columns)
        readonly property int usualWidth: Theme.contentWidth >= 1040 ? 192 : 144
        readonly property int columns: Math.max(2, Math.round((Theme.contentWidth + gap) / (usualWidth + gap)))
        name: root.title
        model: root.model
        onOpened: gameID => root.opened(gameID)
        onFavoriteWanted: (gameID, favorite) => root.favoriteWanted(gameID, favorite)
    }
}
