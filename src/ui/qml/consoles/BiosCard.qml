import QtQuick
import Velko

/// The system files that a console's emulator asks for, and where they belong.
Card {
    id: root
    required property ConsoleFacts facts

    height: texts.height + 48

    Icon {
        x: 24
        y: 26
        name: "chip"
        size: 22
        color: Theme.t2
    }
    Column {
        id: texts
        x: 58
        y: 24
        width: parent.width - x - 24
        spacing: 6

        Heading {
            width: parent.width - need.width - 12
            text: root.facts.biosLabel
            size: 17
            font.weight: 600
            wrapMode: Text.Wrap
            maximumLineCount: 2
        }
        Label {
            width: parent.width
            text: root.facts.biosHint
            size: 14.5
            color: Theme.t2
            wrapMode: Text.Wrap
        }
        Label {
            width: parent.width
            topPadding: 8
            text: root.facts.biosPlace
            size: 14.5
            wrapMode: Text.Wrap
        }
    }
    Tag {
        id: need
        anchors.right: parent.right
        anchors.rightMargin: 24
        y: 22
        text: root.facts.biosNeed
    }
}
