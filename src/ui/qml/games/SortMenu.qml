import QtQuick
import Velko

/// The choice of an order, dropped down below the button that opens it. Covers its page, so that a click beside it
/// closes it and nothing else.
FocusScope {
    id: root
    required property LibraryLists lists
    required property GameListModel games
    property point corner ///< its top right corner
    signal closed

    anchors.fill: parent
    Pad.back: Tr.translate("Close")
    Keys.onEscapePressed: root.closed()
    Keys.onBackPressed: root.closed()
    Accessible.role: Accessible.PopupMenu
    Accessible.name: Tr.translate("Sort by")

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: event => event.accepted = true
        onClicked: root.closed()
    }
    BorderImage {
        anchors.fill: panel
        anchors.margins: -20
        anchors.topMargin: -10
        anchors.bottomMargin: -30
        visible: !Theme.light
        source: "image://shadow/16/20/45"
        border { left: 56; right: 56; top: 56; bottom: 56 }
    }
    Rectangle {
        id: panel
        x: root.corner.x - width
        y: root.corner.y
        width: 240
        height: rows.height + 16
        radius: 16
        color: Theme.overlay
        border.width: Theme.light ? 1 : 0
        border.color: Theme.line
        NumberAnimation on opacity { from: 0; to: 1; duration: Theme.fast }

        Column {
            id: rows
            x: 8
            y: 8
            width: parent.width - 16
            Repeater {
                model: root.lists.sorts
                ListRow {
                    required property var modelData
                    width: rows.width
                    focus: selected
                    text: modelData.text
                    icon: selected ? "check" : "sort"
                    selected: modelData.value === root.games.sort
                    onActivated: {
                        root.games.sort = modelData.value
                        root.closed()
                    }
                }
            }
        }
    }
}
