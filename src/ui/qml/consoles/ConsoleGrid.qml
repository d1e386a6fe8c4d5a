import QtQuick
import Velko

/// All tiles of the catalog, in one run or below the names of their makers.
FocusScope {
    id: root
    required property ConsoleListModel consoles
    property string remembered ///< the console that had the focus when the list begins anew
    property int current: 0
    readonly property Item currentItem: tiles.count > 0 ? tiles.itemAt(Math.min(current, tiles.count - 1)) : null
    readonly property bool lit: activeFocus && Theme.inputMode !== "pointer"
    readonly property int gap: 24
    readonly property int edge: 12 ///< room for the ring
    readonly property real room: width - 2 * edge
    readonly property int columns: Math.max(2, Math.ceil((room + gap) / 320))
    readonly property int tileWidth: Math.floor((room - (columns - 1) * gap) / columns)
    readonly property int tileHeight: 208
    readonly property int headingHeight: consoles.byMaker ? 62 : 0
    signal arrived(string consoleID)
    signal opened(string consoleID)
    signal typed(string text)

    activeFocusOnTab: tiles.count > 0
    Accessible.role: Accessible.List
    Accessible.name: Tr.translate("Consoles")
    Pad.confirm: Tr.translate("Open")
    Component.onCompleted: root.comeBack()
    onCurrentItemChanged: scroll.reveal()

    function comeBack() { root.current = Math.max(0, root.consoles.rowOf(root.remembered)) }
    function goTo(tile) {
        root.current = tile
        root.arrived(root.consoles.consoleAt(tile))
    }

    Binding { target: root.consoles; property: "columns"; value: root.columns }
    Connections {
        target: root.consoles
        function onModelReset() { root.comeBack() }
    }
    Keys.onPressed: event => event.accepted = keys.press(event.key, event.modifiers, event.text)
    GridKeys {
        id: keys
        groups: root.consoles.groupSizes
        columns: root.columns
        page: Math.max(1, Math.floor(root.height / (root.tileHeight + root.gap)))
        current: tiles.count > 0 ? root.current : -1
        onMoved: tile => root.goTo(tile)
        onOpened: root.opened(root.consoles.consoleAt(root.current))
        onTyped: text => root.typed(text)
    }
    Flickable {
        id: view
        anchors.fill: parent
        clip: true
        contentWidth: width
        contentHeight: root.edge + root.consoles.lines * (root.tileHeight + root.gap)
            + root.consoles.groupTitles.length * root.headingHeight + 24
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true

        Repeater {
            model: root.consoles.groupTitles
            Heading {
                required property int index
                required property string modelData
                x: root.edge
                y: root.edge + index * root.headingHeight + root.consoles.groupLines[index] * (root.tileHeight + root.gap) + 16
                text: modelData
                size: 22
            }
        }
        Repeater {
            id: tiles
            model: root.consoles
            ConsoleTile {
                x: root.edge + column * (root.tileWidth + root.gap)
                y: root.edge + line * (root.tileHeight + root.gap) + (group + 1) * root.headingHeight
                width: root.tileWidth
                height: root.tileHeight
                onTapped: {
                    root.goTo(index)
                    root.forceActiveFocus(Qt.MouseFocusReason)
                    root.opened(consoleID)
                }
            }
        }
        Item {
            visible: root.lit && root.currentItem !== null
            x: root.currentItem ? root.currentItem.x : 0
            y: root.currentItem ? root.currentItem.y : 0
            width: root.tileWidth
            height: root.tileHeight
            FocusRing { radiusInside: 20 }
        }
        NumberAnimation on contentY {
            id: scroll
            running: false
            duration: keys.far ? 0 : Theme.scroll
            easing.type: Easing.OutCubic
            function reveal() {
                if (!root.currentItem || !root.lit) return
                const top = root.currentItem.y - root.headingHeight - root.edge
                const bottom = root.currentItem.y + root.tileHeight + root.edge + 16 - view.height
                const wanted = Math.max(0, Math.min(view.contentHeight - view.height, Math.max(bottom, Math.min(top, view.contentY))))
                if (wanted !== view.contentY) { to = wanted; restart() }
            }
        }
    }
    ScrollHandle {
        view: view
        anchors.rightMargin: -12
    }
}
