import QtQuick
import Velko

/// The last two weeks, day by day.
Card {
    id: root
    required property GameFacts game

    implicitHeight: 360
    Label {
        x: 28
        y: 24
        text: Tr.translate("Last 14 days")
        size: 17
        font.weight: 600
    }
    Bars {
        x: 28
        y: 72
        width: parent.width - 56
        height: parent.height - y - 24
        days: root.game.days
        gap: 10
    }
}
