import QtQuick
import Velko

/// Where a search is typed; Escape empties it first.
TextField {
    id: root
    icon: "search"
    placeholder: Tr.translate("Search")
    Keys.onEscapePressed: event => {
        event.accepted = root.text !== ""
        root.text = ""
        root.edited("")
    }
}
