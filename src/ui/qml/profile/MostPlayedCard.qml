import QtQuick
import Velko

/// The games that were played longest.
Card {
    id: root
    required property var games ///< as ProfileFacts has them
    signal opened(string gameID)

    Label {
        x: 30
        y: 28
        text: Tr.translate("Most played")
        size: 17
        font.weight: 600
    }
    Label {
        visible: root.games.length === 0
        x: 30
        y: 72
        width: parent.width - 60
        text: Tr.translate("Nothing played yet. Velko counts the time of every game that you start here.")
        color: Theme.t2
        wrapMode: Text.Wrap
    }
    Column {
        x: 18
        y: 64
        width: parent.width - 36
        Repeater {
            model: root.games
            Pressable {
                id: row
                required property var modelData
                width: parent.width
                height: 70
                name: row.modelData.title + ", " + row.modelData.time
                onActivated: root.opened(row.modelData.gameID)
                Rectangle {
                    anchors.fill: parent
                    anchors.topMargin: 3
                    anchors.bottomMargin: 3
                    radius: 14
                    color: row.lit || row.hovered ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
                    border.width: row.lit ? 3 : 0
                    border.color: Theme.accent
                }
                Cover {
                    x: 12 + (44 - width) / 2
                    y: (row.height - height) / 2
                    width: Math.min(44, 54 / row.modelData.ratio)
                    height: width * row.modelData.ratio
                    cover: row.modelData.cover
                    consoleID: row.modelData.consoleID
                    radius: 5
                }
                Label {
                    x: 74
                    y: 13
                    width: row.width - x - 110
                    text: row.modelData.title
                    font.weight: 600
                }
                Rectangle {
                    x: 74
                    y: 43
                    width: row.width - x - 110
                    height: 6
                    radius: 3
                    color: Theme.fill2
                    Rectangle {
                        width: Math.max(6, parent.width * row.modelData.share)
                        height: 6
                        radius: 3
                        color: Theme.accentFor(Theme.consoleLabel(row.modelData.consoleID))
                    }
                }
                Label {
                    anchors.right: parent.right
                    anchors.rightMargin: 14
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.modelData.time
                    color: Theme.t2
                }
            }
        }
    }
}
