import QtQuick
import Velko

/// Play time at a glance.
Card {
    id: root
    required property GameFacts game

    Figure {
        x: 28
        y: 26
        value: root.game.playTime
        text: Tr.translate("Play time")
        size: root.width >= 380 ? 30 : 24
    }
    Figure {
        x: parent.width - 28 - width
        y: 26
        value: root.game.sessions
        text: Tr.translate("Sessions")
        size: root.width >= 380 ? 30 : 24
    }
    Figure {
        id: last
        visible: root.game.lastSession !== ""
        x: 28
        y: 102
        value: root.game.lastSession
        text: Tr.translate("Last session")
        size: 22
    }
    Bars {
        x: 28
        y: parent.height - 26 - 30 - height
        width: parent.width - 56
        height: Math.min(150, parent.height - 102 - 56 - 84)
        days: root.game.days
        labels: false
        gap: 8
    }
    Label {
        x: 28
        y: parent.height - 26 - height
        text: root.game.firstDay
        size: 13.5
        color: Theme.t3
    }
    Label {
        x: parent.width - 28 - width
        y: parent.height - 26 - height
        text: Tr.translate("Today")
        size: 13.5
        color: Theme.t3
    }
}
