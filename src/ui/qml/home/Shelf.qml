import QtQuick
import Velko

/// A titled shelf of Home; not there while it is empty.
FocusScope {
    id: root
    property string title
    required property ShelfModel model
    signal opened(string gameID)

    visible: model.count > 0
    height: visible ? 16 + 48 + row.implicitHeight : 0

    Heading {
        y: 16
        text: root.title
        font.weight: 620
    }
    ShelfRow {
        id: row
        y: 64
        width: parent.width
        height: implicitHeight
        focus: true
        coverWidth: Theme.contentWidth >= 1040 ? 192 : 144
        gap: (Theme.contentWidth - columns * coverWidth) / Math.max(1, columns - 1)
        readonly property int columns: Math.floor((Theme.contentWidth + 24) / (coverWidth + 24))
        name: root.title
        model: root.model
        onOpened: gameID => root.opened(gameID)
    }
}
