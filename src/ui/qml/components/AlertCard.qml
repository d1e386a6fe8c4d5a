import QtQuick
import Velko

/// Something happened: what, and what can be done about it.
FocusScope {
    id: root
    property string icon
    property color iconColor: Theme.t2
    property bool busy: false
    property string title
    property string text
    property string action ///< the main one; empty: none
    property string second ///< the quiet one; empty: none
    readonly property bool stacked: width < 900
    signal activated
    signal secondActivated

    implicitHeight: Math.max(76, words.height + 40 + (stacked ? buttons.height + 16 : 0))
    height: implicitHeight

    Card { anchors.fill: parent }
    Icon {
        x: 26
        y: 25
        visible: !root.busy
        name: root.icon
        size: 26
        color: root.iconColor
    }
    Spinner {
        x: 26
        y: 25
        visible: root.busy && root.visible
        size: 26
    }
    Column {
        id: words
        x: 72
        y: root.stacked ? 20 : (root.height - height) / 2
        width: root.width - 72 - 24 - (root.stacked ? 0 : buttons.width + 24)
        spacing: 4
        Label {
            visible: root.title !== ""
            width: parent.width
            text: root.title
            size: 17
            font.weight: 600
        }
        Label {
            width: parent.width
            text: root.text
            size: 15.5
            color: root.title === "" ? Theme.t1 : Theme.t2
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeight: 1.25
        }
    }
    Row {
        id: buttons
        x: root.stacked ? 72 : root.width - width - 24
        y: root.stacked ? words.y + words.height + 16 : (root.height - height) / 2
        spacing: 10
        TextButton {
            visible: root.action !== ""
            focus: visible
            kind: "primary"
            size: 44
            textSize: 14.5
            text: root.action
            onActivated: root.activated()
        }
        TextButton {
            visible: root.second !== ""
            focus: root.action === ""
            kind: root.action === "" ? "plain" : "ghost"
            size: 44
            textSize: 14.5
            text: root.second
            onActivated: root.secondActivated()
        }
    }
}
