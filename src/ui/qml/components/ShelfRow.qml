import QtQuick
import Velko

/// Covers of different shapes standing on one line, with their captions below. `model` has the roles of ShelfModel.
/// Left and right move along the shelf, the confirm key opens, F marks as a favorite.
FocusScope {
    id: root
    required property var model
    property string name ///< spoken by screen readers
    property real coverWidth: 192
    property real gap: 32
    readonly property real shelfHeight: coverWidth * 4 / 3
    signal opened(string gameID)
    signal favoriteWanted(string gameID, bool favorite)

    implicitHeight: shelfHeight + 66

    ShelfLine {
        x: -40
        y: root.shelfHeight
        width: root.width + 80
    }
    ListView {
        id: list
        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        orientation: ListView.Horizontal
        spacing: root.gap
        model: root.model
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        cacheBuffer: Math.max(0, root.width)
        highlightFollowsCurrentItem: false
        preferredHighlightBegin: 0
        preferredHighlightEnd: width - root.coverWidth
        highlightRangeMode: ListView.NoHighlightRange
        highlightMoveDuration: Theme.scroll
        readonly property bool lit: activeFocus && Theme.inputMode !== "pointer"
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)
        onActiveFocusChanged: currentIndex = Math.max(0, currentIndex)
        Accessible.role: Accessible.List
        Accessible.name: root.name
        readonly property ShelfCover cover: currentItem as ShelfCover
        Pad.confirm: Tr.translate("Set up and play")
        Pad.favorite: cover?.favorite ? Tr.translate("Remove from favorites") : Tr.translate("Favorite")
        Pad.onFavoritePressed: if (cover) root.favoriteWanted(cover.gameID, !cover.favorite)
        Pad.onDetailsPressed: if (cover) root.opened(cover.gameID)
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_F && event.modifiers === Qt.NoModifier && cover !== null
            if (event.accepted) root.favoriteWanted(cover.gameID, !cover.favorite)
        }
        Keys.onReturnPressed: event => { if (!event.isAutoRepeat && cover) root.opened(cover.gameID) }
        Keys.onEnterPressed: event => { if (!event.isAutoRepeat && cover) root.opened(cover.gameID) }
        delegate: ShelfCover {
            coverWidth: root.coverWidth
            shelfHeight: root.shelfHeight
            lit: ListView.isCurrentItem && list.lit
            onActivated: {
                list.currentIndex = index
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.opened(gameID)
            }
        }
    }
}
