import QtQuick
import Velko

/// How long a game was played and when last.
Row {
    id: root
    required property GameFacts game

    spacing: 14
    Label {
        id: first
        text: root.game.playedText
        size: 16.5
        color: Theme.t2
    }
    Rectangle {
        visible: second.visible
        y: (first.height - height) / 2
        width: 4
        height: 4
        radius: 2
        color: Theme.t3
    }
    Label {
        id: second
        visible: text !== ""
        width: Math.min(implicitWidth, root.width - first.width - 32)
        text: root.game.lastPlayedText
        size: 16.5
        color: Theme.t2
    }
}
