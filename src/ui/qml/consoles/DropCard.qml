import QtQuick
import Velko

/// Where games of one console are dropped; pressing it chooses a folder instead.
Pressable {
    id: root
    required property ConsoleFacts facts

    name: Tr.translate("Add games")
    hint: words.text
    height: 196

    Rectangle {
        anchors.fill: parent
        radius: 20
        color: root.lit || root.hovered ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
    }
    DashedFrame {
        anchors.fill: parent
        radius: 20
    }
    Column {
        anchors.centerIn: parent
        width: parent.width - 48
        spacing: 12
        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "drop"
            size: 40
        }
        Label {
            id: words
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: Tr.translate("Drop your game, its update or a DLC")
            size: 17
            font.weight: 600
            wrapMode: Text.Wrap
        }
        Label {
            visible: text !== ""
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: root.facts.extensions
            size: 13.5
            color: Theme.t3
        }
    }
    FocusRing {
        visible: root.lit
        radiusInside: 20
    }
}
