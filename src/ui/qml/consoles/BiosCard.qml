import QtQuick
import Velko

/// The system files that a console's emulator asks for: whether they are there, and where they are dropped or chosen.
Card {
    id: root
    required property BiosFacts facts
    signal filesWanted

    height: content.height + 48

    Icon {
        x: 24
        y: 26
        name: "chip"
        size: 22
        color: Theme.t2
    }
    Tag {
        id: need
        anchors.right: parent.right
        anchors.rightMargin: 24
        y: 22
        text: root.facts.need
    }
    Column {
        id: content
        x: 24
        y: 24
        width: parent.width - 48
        spacing: 16

        Column {
            x: 34
            width: parent.width - x
            spacing: 6
            Heading {
                width: parent.width - need.width - 12
                text: root.facts.label
                size: 17
                font.weight: 600
                wrapMode: Text.Wrap
                maximumLineCount: 2
            }
            Label {
                width: parent.width
                text: root.facts.hint
                size: 14.5
                color: Theme.t2
                wrapMode: Text.Wrap
            }
            Item {
                visible: root.facts.stateText !== ""
                width: parent.width
                height: state.height + 6
                StatusDot {
                    y: 12
                    kind: root.facts.stateDot
                }
                Label {
                    id: state
                    x: 20
                    y: 6
                    width: parent.width - x
                    text: root.facts.stateText
                    font.weight: 600
                    wrapMode: Text.Wrap
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
            Repeater {
                model: root.facts.reports.length === 0 ? root.facts.remarks : []
                Label {
                    required property string modelData
                    width: parent.width
                    text: modelData
                    size: 14
                    color: Theme.t2
                    wrapMode: Text.Wrap
                }
            }
        }
        Repeater {
            model: root.facts.reports
            Rectangle {
                id: report
                required property var modelData
                width: content.width
                height: words.height + 34
                radius: 14
                color: Theme.sunken
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.text + " " + modelData.detail
                Icon {
                    x: 20
                    y: 16
                    name: report.modelData.good ? "check" : "warning"
                    size: 22
                    color: report.modelData.good ? Theme.ok : Theme.warn
                }
                Column {
                    id: words
                    x: 58
                    y: 17
                    width: parent.width - x - 16
                    spacing: 4
                    Label {
                        width: parent.width
                        text: report.modelData.text
                        wrapMode: Text.Wrap
                        elide: Text.ElideNone
                    }
                    Label {
                        visible: text !== ""
                        width: parent.width
                        text: report.modelData.detail
                        size: 14
                        color: Theme.t2
                        wrapMode: Text.Wrap
                        elide: Text.ElideNone
                    }
                }
            }
        }
        Pressable {
            id: slot
            name: Tr.translate("Choose the files")
            hint: root.facts.place
            available: !root.facts.busy
            width: parent.width
            height: place.height + 66
            onActivated: root.filesWanted()

            Rectangle {
                anchors.fill: parent
                radius: 14
                color: slot.lit || slot.hovered || drop.containsDrag ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
            }
            DashedFrame {
                anchors.fill: parent
                radius: 14
                color: drop.containsDrag ? Theme.accent : Theme.line2
            }
            Icon {
                x: 20
                y: 20
                visible: !root.facts.busy
                name: "drop"
                size: 24
                color: Theme.t2
            }
            Loader {
                x: 20
                y: 20
                active: root.facts.busy
                sourceComponent: Spinner { size: 24 }
            }
            Label {
                x: 58
                y: 17
                width: parent.width - x - 16
                text: root.facts.busy ? Tr.translate("Copying…") : Tr.translate("Drop the files here, or press to choose them")
                font.weight: 600
            }
            Label {
                id: place
                x: 58
                y: 42
                width: parent.width - x - 16
                text: root.facts.place
                size: 14
                color: Theme.t2
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            }
            FocusRing {
                visible: slot.lit
                radiusInside: 14
                gap: 3
                thickness: 3
            }
        }
    }
    DropArea {
        id: drop
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: drop => { if (root.facts.drop(drop.urls)) drop.accept(Qt.CopyAction) }
    }
}
