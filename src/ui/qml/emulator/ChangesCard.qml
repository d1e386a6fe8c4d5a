import QtQuick
import Velko

/// What Velko changed in one emulator's files, and the way back.
Card {
    id: root
    required property EmulatorFacts emulator
    readonly property int few: 6
    property bool all: false

    implicitHeight: content.height + 48

    Column {
        id: content
        x: 28
        y: 22
        width: parent.width - 56
        spacing: 16

        Column {
            width: parent.width
            spacing: 6
            Heading {
                width: parent.width
                text: Tr.fill("What Velko changed in %@", [root.emulator.name])
                size: 17
                font.weight: 600
                wrapMode: Text.Wrap
            }
            Label {
                width: parent.width
                text: root.emulator.putBackText !== "" ? root.emulator.putBackText
                    : Tr.translate("Nothing else in its files was touched. A value that you change yourself later stays yours.")
                size: 14.5
                color: Theme.t2
                wrapMode: Text.Wrap
                lineHeight: 1.3
            }
        }
        Column {
            visible: root.emulator.edits.length > 0
            width: parent.width
            Repeater {
                model: root.emulator.edits
                Item {
                    id: edit
                    required property var modelData
                    required property int index
                    visible: root.all || index < root.few
                    width: parent.width
                    height: 58
                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.key + ": " + modelData.old + " → " + modelData.value
                    Rectangle {
                        visible: edit.index > 0
                        width: parent.width
                        height: 1
                        color: Theme.line
                    }
                    Label {
                        y: 9
                        width: parent.width * 0.55
                        text: edit.modelData.key
                        font.weight: 600
                    }
                    Label {
                        y: 32
                        width: parent.width * 0.55
                        text: edit.modelData.place
                        size: 13.5
                        color: Theme.t2
                        elide: Text.ElideMiddle
                    }
                    Label {
                        x: parent.width * 0.58
                        width: parent.width - x
                        anchors.verticalCenter: parent.verticalCenter
                        horizontalAlignment: Text.AlignRight
                        text: edit.modelData.old + "  →  " + edit.modelData.value
                        size: 14.5
                        color: Theme.t2
                        elide: Text.ElideMiddle
                    }
                }
            }
        }
        Flow {
            visible: root.emulator.edits.length > 0
            width: parent.width
            spacing: 12
            TextButton {
                icon: "back"
                text: root.emulator.puttingBack ? Tr.translate("Cancel") : Tr.translate("Put back")
                onActivated: root.emulator.putBack()
            }
            TextButton {
                visible: root.emulator.edits.length > root.few
                kind: "ghost"
                text: root.all ? Tr.translate("Show fewer") : Tr.fill("Show all %ld", [root.emulator.edits.length])
                onActivated: root.all = !root.all
            }
        }
    }
}
