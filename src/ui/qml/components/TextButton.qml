import QtQuick
import Velko

/// A button with a word, an icon or both. `kind`: "primary" is the page's default action, "plain", "strong" stands on
/// pictures, "ghost" has no ground of its own.
Pressable {
    id: root
    property string text
    property string icon
    property string kind: "plain"
    property real size: 48 ///< its height
    property bool round: false ///< a pill, as in top bars
    property real textSize: size >= 52 ? 17 : size <= 40 ? 14.5 : 15.5
    readonly property bool filled: lit || (kind === "primary" && Theme.inputMode === "pointer" && available)
    readonly property color ink: !available ? Theme.t3 : filled ? Theme.onAccent : kind === "ghost" && !hovered ? Theme.t2 : Theme.t1
    readonly property color ground: filled ? Theme.accent
        : kind === "ghost" ? (hovered ? Theme.fill1 : Qt.alpha(Theme.fill1, 0))
        : hovered && available ? Theme.fill3
        : kind === "strong" ? Theme.fill3 : available ? Theme.fill2 : Theme.fill1

    name: text
    implicitHeight: size
    implicitWidth: text === "" ? size : content.implicitWidth + (size >= 52 ? 68 : size <= 40 ? 32 : 44)

    Rectangle {
        anchors.fill: parent
        radius: root.round ? height / 2 : root.size <= 40 ? 12 : 14
        color: root.pressed && root.available ? Qt.darker(root.ground, root.filled ? 1.15 : 1.3) : root.ground
    }
    Row {
        id: content
        anchors.centerIn: parent
        spacing: 10
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.icon !== ""
            name: root.icon
            size: root.text === "" ? 21 : 20
            color: root.ink
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.text !== ""
            text: root.text
            size: root.textSize
            font.weight: 600
            color: root.ink
            width: Math.min(implicitWidth, root.width > 0 ? root.width - (root.icon === "" ? 24 : 54) : implicitWidth)
        }
    }
}
