import QtQuick
import Velko

/// What stands above a console's games: the way back, its name, maker and year, and the order of the games.
Item {
    id: root
    required property LibraryLists lists
    readonly property ConsoleFacts facts: lists.console
    readonly property alias orderButton: order
    readonly property bool wide: Theme.contentWidth >= 1500
    signal backWanted
    signal orderWanted

    height: games.y + games.height + 22

    TextButton {
        x: -16
        y: 12
        size: 40
        kind: "ghost"
        icon: "back"
        text: Tr.translate("All consoles")
        onActivated: root.backWanted()
    }
    Row {
        id: title
        y: 64
        width: parent.width
        spacing: 24
        Heading {
            id: name
            width: Math.min(implicitWidth, root.width - (state.visible ? state.width + 24 : 0))
            text: root.facts.name
            size: root.wide ? 64 : Theme.contentWidth >= 1000 ? 48 : 36
            font.weight: 700
        }
        Tag {
            id: state
            visible: root.facts.statusText !== ""
            anchors.verticalCenter: parent.verticalCenter
            implicitHeight: 34
            text: root.facts.statusText
            dot: root.facts.statusDot
        }
    }
    Row {
        id: facts
        y: title.y + title.height + 10
        spacing: 14
        Repeater {
            model: root.facts.headline
            Row {
                id: fact
                required property int index
                required property string modelData
                spacing: 14
                Rectangle {
                    visible: fact.index > 0
                    anchors.verticalCenter: parent.verticalCenter
                    width: 4
                    height: 4
                    radius: 2
                    color: Theme.t3
                }
                Label {
                    text: fact.modelData
                    size: 16.5
                    color: Theme.t2
                }
            }
        }
    }
    Item {
        id: games
        y: facts.y + facts.height + 36
        width: parent.width
        height: 40
        Heading {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - order.width - 16
            text: root.facts.gamesTitle
            size: 22
        }
        TextButton {
            id: order
            visible: root.lists.consoleGames.count > 1
            anchors.right: parent.right
            round: true
            size: 40
            icon: "sort"
            text: root.lists.consoleGames.sortText
            hint: Tr.translate("Sort by")
            onActivated: root.orderWanted()
        }
    }
}
