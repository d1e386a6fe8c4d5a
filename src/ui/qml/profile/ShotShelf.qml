import QtQuick
import Velko

/// One game's screenshots side by side. Left and right move, the confirm key opens, Delete asks to remove.
FocusScope {
    id: root
    required property int index
    required property string groupID
    required property string title
    required property ShotListModel shots
    signal opened(int row)
    signal removalWanted(string url)

    implicitHeight: 40 + list.height
    Row {
        spacing: 12
        Label {
            text: root.title
            size: 17
            font.weight: 600
        }
        Label {
            text: root.shots ? root.shots.count : ""
            size: 17
            color: Theme.t3
        }
    }
    ListView {
        id: list
        y: 40
        width: parent.width
        height: 162
        focus: true
        activeFocusOnTab: true
        orientation: ListView.Horizontal
        spacing: 24
        model: root.shots
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        cacheBuffer: Math.max(0, width)
        highlightFollowsCurrentItem: false
        highlightMoveDuration: Theme.scroll
        readonly property bool lit: activeFocus && Theme.inputMode !== "pointer"
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)
        onActiveFocusChanged: currentIndex = Math.max(0, currentIndex)
        Accessible.role: Accessible.List
        Accessible.name: Tr.translate("Screenshots") + ", " + root.title
        Keys.onReturnPressed: event => { if (!event.isAutoRepeat) root.opened(currentIndex) }
        Keys.onEnterPressed: event => { if (!event.isAutoRepeat) root.opened(currentIndex) }
        Keys.onDeletePressed: remove()
        Pad.confirm: Tr.translate("Full screen")
        Pad.details: Tr.translate("Delete")
        Pad.onDetailsPressed: remove()
        function remove() { if (currentItem) root.removalWanted((currentItem as ShotTile).url) }
        delegate: ShotTile {
            id: tile
            lit: ListView.isCurrentItem && list.lit
            onActivated: {
                list.currentIndex = tile.index
                list.forceActiveFocus(Qt.MouseFocusReason)
                root.opened(tile.index)
            }
            onRemovalWanted: root.removalWanted(tile.url)
        }
    }
}
