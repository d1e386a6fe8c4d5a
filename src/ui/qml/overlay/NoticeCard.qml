import QtQuick
import Velko

/// A notice over a game: a drawing and one or two lines. `kind` colours the drawing: "ok", "warn", "quiet" or "plain".
Item {
    id: root
    property string text
    property string detail
    property string icon
    property string kind: "plain"
    property var glyphs: [] ///< buttons that are pressed together, in place of the drawing
    property var detailGlyphs: [] ///< buttons inside the second line, in place of its "%@"
    property bool busy: false
    readonly property real radius: Theme.px(tall ? 22 : 20)
    readonly property bool tall: detail !== "" || line.lineCount > 1
    readonly property real widest: Theme.px(600) - words.x - Theme.px(28)

    width: Math.max(Theme.px(200), Math.min(Theme.px(600), words.x + words.implicitWidth + Theme.px(28)))
    height: Theme.px(tall ? 96 : 70)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: detail === "" ? text : text + ". " + detail

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.notice
        border.width: 1
        border.color: "#1FF4F1EB"
    }
    Row {
        id: sign
        x: Theme.px(26)
        height: parent.height
        spacing: Theme.px(8)
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: !root.busy && root.glyphs.length === 0
            name: root.icon
            size: Theme.px(36)
            color: root.kind === "ok" ? Theme.ok : root.kind === "warn" ? Theme.warn : root.kind === "quiet" ? Theme.t2 : Theme.t1
        }
        Loader {
            anchors.verticalCenter: parent.verticalCenter
            active: root.busy
            visible: active
            sourceComponent: Spinner { size: Theme.px(36) }
        }
        Repeater {
            model: root.busy ? [] : root.glyphs
            Row {
                id: part
                required property string modelData
                required property int index
                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.px(8)
                FarLabel {
                    visible: part.index > 0
                    anchors.verticalCenter: parent.verticalCenter
                    text: "+"
                    font.weight: 600
                    color: Theme.t3
                }
                Glyph {
                    anchors.verticalCenter: parent.verticalCenter
                    name: part.modelData
                    size: Theme.px(38)
                }
            }
        }
    }
    Column {
        id: words
        x: sign.x + sign.width + Theme.px(22)
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.px(6)
        FarLabel {
            id: line
            width: Math.min(implicitWidth, root.widest)
            text: root.text
            size: 22
            font.weight: 600
            wrapMode: Text.Wrap
            maximumLineCount: root.detail === "" ? 2 : 1
        }
        Row {
            visible: root.detail !== ""
            spacing: Theme.px(10)
            FarLabel {
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, root.widest)
                text: root.detail.split("%@")[0].trim()
                size: 20
                color: Theme.t2
            }
            Repeater {
                model: root.detailGlyphs
                Glyph {
                    required property string modelData
                    anchors.verticalCenter: parent.verticalCenter
                    name: modelData
                    size: Theme.px(28)
                }
            }
            FarLabel {
                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                text: (root.detail.split("%@")[1] ?? "").trim()
                size: 20
                color: Theme.t2
            }
        }
    }
}
