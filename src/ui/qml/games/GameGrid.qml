import QtQuick
import Velko

/// Covers of equal width standing on shelf lines. As many columns as there is room for; the rest of the room is gaps.
GridView {
    id: root
    required property GameListModel games
    property string remembered ///< the game that had the focus when the list begins anew
    property real topSpace: 28 ///< above the first covers; what stands there moves with them
    readonly property int edge: 16 ///< room for the ring beside the covers
    readonly property int trailing: 56 ///< room for a gap after the last column, which the view counts too
    readonly property real room: width - edge - trailing
    readonly property int columns: Math.max(2, Math.ceil((room + 29) / 237))
    // Multiples of 12 make the heights of all three shapes whole numbers, so that pictures are drawn as they are.
    readonly property int coverWidth: Math.max(96, Math.floor((room - (columns - 1) * 29) / columns / 12) * 12)
    readonly property real gap: Math.floor((room - columns * coverWidth) / (columns - 1))
    readonly property real shelf: coverWidth * 4 / 3
    readonly property real linesWidth: columns * coverWidth + (columns - 1) * gap ///< what the covers take up
    readonly property bool lit: activeFocus && Theme.inputMode !== "pointer"
    readonly property int firstLine: Math.max(0, Math.floor((contentY - originY - topSpace) / cellHeight))
    signal arrived(string gameID) ///< the focus
    signal opened(string gameID)
    signal favoriteToggled(string gameID)
    signal typed(string text)
    property Item above ///< what up from the first line leads to

    clip: true
    model: games
    leftMargin: edge
    cellWidth: coverWidth + gap
    cellHeight: shelf + 76
    boundsBehavior: Flickable.StopAtBounds
    pixelAligned: true
    reuseItems: true
    cacheBuffer: Math.max(0, height)
    activeFocusOnTab: count > 0
    keyNavigationEnabled: false
    highlightMoveDuration: keys.far ? 0 : Theme.scroll
    Accessible.role: Accessible.List
    Accessible.name: root.games.heading
    Component.onCompleted: root.comeBack()
    onRememberedChanged: if (!activeFocus) root.comeBack()
    Pad.confirm: Tr.translate("Set up and play")
    Pad.favorite: (currentItem as GameCell)?.favorite ? Tr.translate("Remove from favorites") : Tr.translate("Favorite")
    Pad.onFavoritePressed: root.favoriteToggled(root.games.gameAt(root.currentIndex))
    Pad.onDetailsPressed: root.opened(root.games.gameAt(root.currentIndex))

    function comeBack() { root.currentIndex = Math.max(0, root.games.rowOf(root.remembered)) }
    function goTo(tile) {
        root.currentIndex = tile
        root.arrived(root.games.gameAt(tile))
    }

    header: Item { height: root.topSpace }
    footer: Item { height: 24 }
    highlight: CoverHighlight {
        cell: root.currentItem as GameCell
        lit: root.lit
    }
    delegate: GameCell {
        width: root.coverWidth
        height: root.cellHeight
        mixed: root.games.mixed
        lit: GridView.isCurrentItem && root.lit
        onTapped: {
            root.goTo(index)
            root.forceActiveFocus(Qt.MouseFocusReason)
            root.opened(gameID)
        }
    }
    Connections {
        target: root.games
        function onModelReset() { root.comeBack() }
    }
    Keys.onPressed: event => event.accepted = keys.press(event.key, event.modifiers, event.text)
    GridKeys {
        id: keys
        groups: [root.count]
        columns: root.columns
        page: Math.max(1, Math.floor(root.height / root.cellHeight))
        current: root.count > 0 ? root.currentIndex : -1
        onMoved: tile => root.goTo(tile)
        onOpened: root.opened(root.games.gameAt(root.currentIndex))
        onFavoriteToggled: root.favoriteToggled(root.games.gameAt(root.currentIndex))
        onTyped: text => root.typed(text)
        onUpOut: if (root.above) root.above.forceActiveFocus(Qt.TabFocusReason)
    }
    Item {
        parent: root.contentItem
        z: -1
        Repeater {
            model: root.cellHeight > 0 ? Math.ceil(root.height / root.cellHeight) + 1 : 0
            ShelfLine {
                required property int index
                readonly property int line: root.firstLine + index
                visible: line * root.columns < root.count
                x: -8
                y: line * root.cellHeight + root.shelf
                width: root.room + 16
                opacity: 0.5
            }
        }
    }
}
