import QtQuick
import Velko

/// The last seven days.
Card {
    id: root
    required property HomeFacts home

    Label {
        x: 24
        y: 22
        text: Tr.translate("This week")
        size: 17
        font.weight: 600
    }
    Heading {
        anchors.right: parent.right
        anchors.rightMargin: 24
        y: 20
        text: root.home.weekTime
        size: 22
    }
    Bars {
        x: 24
        y: 68
        width: parent.width - 48
        height: parent.height - y - 20
        days: root.home.week
    }
}
