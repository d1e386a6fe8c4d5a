import QtQuick
import Velko

/// The emulators that play a console, and where each copy of them is.
Card {
    id: root
    required property ConsoleFacts facts

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
            Rectangle {
                id: row
                required property string name
                required property string detail
                required property string path
                required property string spoken
                required property bool installed
                required property bool inUse
                width: rows.width
                height: installed ? 68 : 56
                radius: 14
                color: Theme.fill1
                Accessible.role: Accessible.StaticText
                Accessible.name: spoken

                StatusDot {
                    id: dot
                    x: 16
                    anchors.verticalCenter: label.verticalCenter
                    kind: row.inUse ? "ok" : "off"
                }
                Label {
                    id: label
                    x: 39
                    y: row.installed ? 13 : 18
                    width: parent.width - x - kind.implicitWidth - 32
                    text: row.name
                    size: 15.5
                    font.weight: 600
                    color: row.installed ? Theme.t1 : Theme.t2
                }
                Label {
                    id: kind
                    anchors.right: parent.right
                    anchors.rightMargin: 16
                    anchors.baseline: label.baseline
                    text: row.detail
                    size: 13.5
                    color: Theme.t2
                }
                Label {
                    visible: row.installed
                    x: 39
                    y: 37
                    width: parent.width - x - 16
                    text: row.path
                    size: 13.5
                    color: Theme.t2
                    elide: Text.ElideMiddle
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
    }
}
