import QtQuick
import Velko

/// The cover on its own shelf line, and what the user says about the game.
FocusScope {
    id: root
    required property GameFacts game
    readonly property real coverHeight: Math.round(width * game.ratio)

    height: heart.y + 62 + (statusChoice.visible ? statusChoice.height : narrowChoice.height)

    Cover {
        width: root.width
        height: root.coverHeight
        cover: root.game.cover
        consoleID: root.game.consoleID
        playing: root.game.running
        radius: 16
    }
    ShelfLine {
        x: -24
        y: root.coverHeight
        width: root.width + 48
    }
    TextButton {
        id: heart
        y: root.coverHeight + 32
        width: root.width
        icon: root.game.favorite ? "heart-fill" : "heart"
        text: root.game.favorite ? Tr.translate("Remove from favorites") : Tr.translate("Favorite")
        onActivated: root.game.toggleFavorite()
    }
    SegmentedControl {
        id: statusChoice
        visible: root.width >= 340
        y: heart.y + 62
        width: root.width
        height: visible ? 48 : 0
        name: Tr.translate("Status")
        value: root.game.status
        options: choices.list
        onChosen: value => root.game.chooseStatus(value)
    }
    Column {
        id: narrowChoice
        visible: !statusChoice.visible
        y: heart.y + 62
        width: root.width
        spacing: 2
        Repeater {
            model: choices.list
            ListRow {
                required property var modelData
                width: root.width
                text: modelData.text
                icon: selected ? "check" : ""
                selected: root.game.status === modelData.value
                onActivated: root.game.chooseStatus(modelData.value)
            }
        }
    }
    QtObject {
        id: choices
        readonly property var list: [
            { value: "Playing", text: Tr.translate("Playing"), dot: "ok" },
            { value: "To finish", text: Tr.translate("To finish"), dot: "warn" },
            { value: "Completed", text: Tr.translate("Completed"), dot: "info" }
        ]
    }
}
