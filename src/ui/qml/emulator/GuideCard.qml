import QtQuick
import Velko

/// How the controller is set up in one emulator, step by step, and whether that is done.
Card {
    id: root
    required property EmulatorFacts emulator
    property bool first: false ///< its button is where the focus begins
    readonly property bool stacked: width < 640

    implicitHeight: content.height + 52

    Column {
        id: content
        x: 28
        y: 26
        width: parent.width - 56
        spacing: 20

        Item {
            width: parent.width
            height: Math.max(title.height, root.stacked ? title.height + 40 : 30)
            Icon {
                y: -2
                name: "controller"
                size: 24
                color: Theme.t2
            }
            Heading {
                id: title
                x: 40
                width: parent.width - x - (root.stacked ? 0 : state.width + 16)
                text: root.emulator.title
                size: 17
                font.weight: 600
                wrapMode: Text.Wrap
                maximumLineCount: 2
            }
            Tag {
                id: state
                x: root.stacked ? 40 : parent.width - width
                y: root.stacked ? title.height + 8 : -3
                text: root.emulator.stateText
                dot: root.emulator.stateDot
            }
        }
        Column {
            x: 40
            width: parent.width - x
            spacing: 14
            Repeater {
                model: root.emulator.steps
                Item {
                    id: step
                    required property int index
                    required property string modelData
                    width: parent.width
                    height: words.height
                    Accessible.role: Accessible.ListItem
                    Accessible.name: root.emulator.byHand ? (index + 1) + ". " + modelData : modelData
                    Rectangle {
                        visible: root.emulator.byHand
                        y: -3
                        width: 28
                        height: 28
                        radius: 14
                        color: Theme.fill2
                        Label {
                            anchors.centerIn: parent
                            text: step.index + 1
                            size: 13.5
                            font.weight: 600
                            color: Theme.t2
                        }
                    }
                    Label {
                        id: words
                        x: root.emulator.byHand ? 42 : 0
                        width: parent.width - x
                        text: step.modelData
                        size: 15.5
                        wrapMode: Text.Wrap
                        elide: Text.ElideNone
                        lineHeight: 1.3
                    }
                }
            }
        }
        Label {
            visible: root.emulator.problem !== ""
            x: 40
            width: parent.width - x
            text: root.emulator.problem
            color: Theme.warn
            wrapMode: Text.Wrap
        }
        Flow {
            visible: root.emulator.name !== ""
            x: 40
            width: parent.width - x
            spacing: 12
            TextButton {
                focus: root.first
                kind: root.emulator.byHand && !root.emulator.configured ? "primary" : "plain"
                icon: "external"
                text: !root.emulator.installed ? Tr.fill("%@ isn't installed", [root.emulator.name])
                    : root.emulator.open ? Tr.fill("%@ is open", [root.emulator.name]) : Tr.translate("Open the emulator")
                available: root.emulator.installed && !root.emulator.open
                onActivated: root.emulator.openAlone()
            }
            TextButton {
                visible: root.emulator.byHand
                icon: root.emulator.configured ? "" : "check"
                text: root.emulator.configured ? Tr.translate("Set it up again") : Tr.translate("It works now")
                onActivated: root.emulator.configured = !root.emulator.configured
            }
        }
    }
}
