import QtQuick
import Velko

/// The keys that lead to a tab from everywhere.
Item {
    id: root
    required property AppState app
    readonly property var tabs: ["home", "games", "consoles", "essentials", "profile", "social"]

    Repeater {
        model: root.tabs
        Item {
            id: one
            required property int index
            required property string modelData
            Shortcut {
                sequence: "Ctrl+" + (one.index + 1)
                onActivated: root.app.tab = one.modelData
            }
        }
    }
    Shortcut {
        sequence: "Ctrl+PgUp"
        onActivated: root.app.stepTab(-1)
    }
    Shortcut {
        sequence: "Ctrl+PgDown"
        onActivated: root.app.stepTab(1)
    }
    Shortcut {
        sequence: "Ctrl+,"
        onActivated: root.app.settings = true
    }
    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: {
            root.app.quitting = true
            Qt.quit()
        }
    }
}
