import QtQuick
import Velko

/// The four tabs of a game's page and what the chosen one shows.
FocusScope {
    id: root
    required property GameFacts game
    required property EmulatorFacts emulator
    readonly property bool wide: width >= 960
    readonly property int sideWidth: Math.min(448, width * 0.335)
    signal removalWanted
    signal renameWanted

    height: 44 + 44 + 24 + Math.max(body.height, wide ? summary.height : body.height + 24 + summary.height)

    Row {
        id: tabs
        /// Where up and down enter the row.
        readonly property Item focusEntry: buttons.count > 0 ? buttons.itemAt(buttons.model.findIndex(tab => tab.name === root.game.pageTab)) : null
        x: -18
        y: 44
        spacing: 8
        Accessible.role: Accessible.PageTabList
        Accessible.name: root.game.title
        Repeater {
            id: buttons
            model: [
                { name: "play", title: "Play" }, { name: "controller", title: "Controller" },
                { name: "stats", title: "Stats" }, { name: "info", title: "Info & files" }
            ]
            TabButton {
                required property var modelData
                text: Tr.translate(modelData.title)
                current: root.game.pageTab === modelData.name
                focus: current
                onActivated: root.game.pageTab = modelData.name
            }
        }
    }
    Loader {
        id: body
        y: 112
        width: root.wide ? root.width - root.sideWidth - 32 : root.width
        sourceComponent: root.game.pageTab === "controller" ? controller : root.game.pageTab === "stats" ? stats
            : root.game.pageTab === "info" ? info : play
    }
    PlaySummary {
        id: summary
        x: root.wide ? root.width - width : 0
        y: root.wide ? 112 : 112 + body.height + 24
        width: root.wide ? root.sideWidth : root.width
        height: root.wide ? Math.max(350, Math.min(440, body.height)) : 300
        game: root.game
    }
    Component {
        id: play
        PlayTab { options: root.game.options }
    }
    Component {
        id: controller
        SetupPanel { emulator: root.emulator }
    }
    Component {
        id: stats
        StatsTab { game: root.game }
    }
    Component {
        id: info
        InfoTab {
            game: root.game
            onRemovalWanted: root.removalWanted()
            onRenameWanted: root.renameWanted()
        }
    }
}
