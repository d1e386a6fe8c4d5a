import QtQuick
import Velko

/// Figures of all games together, and the last seven days.
Card {
    id: root
    required property ProfileFacts profile

    Row {
        x: 30
        y: 26
        spacing: Math.max(24, Math.min(48, (root.width - 420) / 3))
        Repeater {
            model: root.profile.figures
            Figure {
                id: figure
                required property var modelData
                value: figure.modelData.value
                text: figure.modelData.text
                size: root.width >= 640 ? 40 : 30
            }
        }
    }
    Row {
        x: 30
        y: 118
        spacing: 10
        Repeater {
            model: root.profile.statuses
            Tag {
                id: tag
                required property var modelData
                text: tag.modelData.text
                dot: tag.modelData.dot
            }
        }
    }
    Label {
        x: 30
        y: 176
        text: Tr.translate("This week")
        size: 17
        font.weight: 600
    }
    Heading {
        anchors.right: parent.right
        anchors.rightMargin: 30
        y: 174
        text: root.profile.weekTime
        size: 22
    }
    Bars {
        x: 30
        y: 222
        width: parent.width - 60
        height: parent.height - y - 26
        days: root.profile.week
    }
}
