import QtQuick
import Velko

/// The emulators that play a console, and where each copy of them is. Pressing one opens its set-up panel.
Card {
    id: root
    required property ConsoleFacts facts
    signal emulatorWanted(string emulatorID)

    height: rows.height + 48

    Column {
        id: rows
        x: 24
        y: 24
        width: parent.width - 48
        spacing: 10

        Heading {
            text: Tr.translate("Emulator")
            size: 17
            font.weight: 600
            bottomPadding: 4
        }
        Repeater {
            model: root.facts.emulators
            Pressable {
                id: row
                required property string emulatorID
                required property string title
                required property string detail
                required property string path
                required property string spoken
                required property bool installed
                required property bool inUse
                readonly property color quiet: lit ? Theme.onAccent : Theme.t2

                name: spoken
                hint: Tr.translate("Set-up")
                width: rows.width
                height: installed ? 68 : 56
                onActivated: root.emulatorWanted(emulatorID)

                Rectangle {
                    anchors.fill: parent
                    radius: 14
                    color: row.lit ? Theme.accent : row.hovered ? Theme.fill2 : Theme.fill1
                }
                StatusDot {
                    x: 16
                    anchors.verticalCenter: label.verticalCenter
                    visible: !row.lit
                    kind: row.inUse ? "ok" : "off"
                }
                Label {
                    id: label
                    x: 39
                    y: row.installed ? 13 : 18
                    width: parent.width - x - kind.implicitWidth - 52
                    text: row.title
                    size: 15.5
                    font.weight: 600
                    color: row.lit ? Theme.onAccent : row.installed ? Theme.t1 : Theme.t2
                }
                Label {
                    id: kind
                    anchors.right: parent.right
                    anchors.rightMargin: 40
                    anchors.baseline: label.baseline
                    text: row.detail
                    size: 13.5
                    color: row.quiet
                }
                Label {
                    visible: row.installed
                    x: 39
                    y: 37
                    width: parent.width - x - 40
                    text: row.path
                    size: 13.5
                    color: row.quiet
                    elide: Text.ElideMiddle
                }
                Icon {
                    anchors.right: parent.right
                    anchors.rightMargin: 14
                    anchors.verticalCenter: parent.verticalCenter
                    name: "right"
                    size: 16
                    color: row.quiet
                }
            }
        }
        Label {
            visible: root.facts.emulatorHint !== ""
            width: rows.width
            topPadding: 4
            text: root.facts.emulatorHint
            size: 14.5
            color: Theme.t2
            wrapMode: Text.Wrap
            lineHeight: 1.3
        }
        Item {
            visible: root.facts.controllerText !== ""
            width: rows.width
            height: controller.height + 6
            Icon {
                y: 8
                name: "controller"
                size: 20
                color: Theme.t2
            }
            Label {
                id: controller
                x: 32
                y: 6
                width: parent.width - x
                text: root.facts.controllerText
                size: 14.5
                color: Theme.t2
                wrapMode: Text.Wrap
                lineHeight: 1.3
            }
        }
    }
}
