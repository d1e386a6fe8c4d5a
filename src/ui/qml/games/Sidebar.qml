import QtQuick
import Velko

/// Search and filters of the Games screen.
FocusScope {
    id: root
    required property AppState app
    required property FocusKeeper keeper
    required property LibraryLists lists
    signal searched ///< the user is done typing

    function search(text) {
        root.app.search = text
        field.forceActiveFocus(Qt.OtherFocusReason)
    }

    Binding { target: field; property: "text"; value: root.app.search }
    SearchField {
        id: field
        width: parent.width
        onEdited: text => root.app.search = text
        onAccepted: root.searched()
    }
    ScrollPage {
        y: 66
        width: parent.width + 18 // the handle stands beside the rows
        height: parent.height - y
        clip: true
        keeper: root.keeper
        revealMargin: 24
        contentHeight: rows.height + 24

        Column {
            id: rows
            width: root.width
            Repeater {
                model: root.lists.sidebar
                SidebarRow {
                    width: rows.width
                    chosen: root.lists.games.filter
                    onPicked: filter => root.lists.chooseFilter(filter)
                }
            }
        }
    }
}
