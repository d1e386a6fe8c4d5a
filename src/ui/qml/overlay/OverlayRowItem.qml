import QtQuick
import Velko

/// A row of the panel: drawing, name, explanation, and at the right its value or its switch.
Item {
    id: root
    required property int index
    required property string kind
    required property string icon
    required property string title
    required property string detail
    required property string value
    required property bool on
    required property bool available
    required property bool grave
    property bool selected: false
    readonly property bool isFact: kind === "fact"
    readonly property bool lit: selected && !isFact
    readonly property color ink: lit ? Theme.onAccent : available ? Theme.t1 : Theme.t3
    readonly property color quietInk: lit ? Theme.onAccent : available ? Theme.t2 : Theme.t3
    signal entered
    signal chosen
    signal stepped(int by)

    implicitHeight: isFact ? Math.max(Theme.px(72), words.height + Theme.px(28))
        : Math.max(Theme.px(86), words.height + Theme.px(18))
    Accessible.role: kind === "toggle" ? Accessible.CheckBox : isFact ? Accessible.StaticText : Accessible.Button
    Accessible.name: isFact ? root.title + ": " + root.value : root.title
    Accessible.description: root.value === "" ? root.detail : root.value + ". " + root.detail
    Accessible.checkable: kind === "toggle"
    Accessible.checked: root.on
    Accessible.focusable: !isFact
    Accessible.focused: root.lit
    Accessible.onPressAction: root.chosen()
    HoverHandler {
        enabled: !root.isFact
        onPointChanged: if (Theme.inputMode === "pointer") root.entered()
    }
    TapHandler {
        enabled: !root.isFact
        onTapped: root.chosen()
    }

    Rectangle {
        anchors.fill: parent
        visible: root.lit
        radius: Theme.px(18)
        color: root.grave ? Theme.danger : Theme.accent
    }
    Icon {
        x: Theme.px(28)
        anchors.verticalCenter: parent.verticalCenter
        name: root.icon
        size: Theme.px(36)
        color: root.quietInk
    }
    Column {
        id: words
        x: Theme.px(90)
        width: root.width - x - Theme.px(28) - (root.isFact ? 0 : side.width + (side.width > 0 ? Theme.px(20) : 0))
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.px(4)
        FarLabel {
            width: parent.width
            text: root.title
            size: root.isFact ? 22 : 29
            font.weight: root.isFact ? 500 : 600
            color: root.isFact ? Theme.t2 : root.ink
            wrapMode: Text.Wrap
            maximumLineCount: 2
        }
        FarLabel {
            width: parent.width
            visible: text !== ""
            text: root.isFact ? root.value : root.detail
            size: root.isFact ? 26 : 22
            font.weight: root.isFact ? 600 : 500
            color: root.isFact ? Theme.t1 : root.quietInk
            wrapMode: Text.Wrap
            maximumLineCount: 2
        }
    }
    Loader {
        id: side
        anchors.right: parent.right
        anchors.rightMargin: Theme.px(28)
        anchors.verticalCenter: parent.verticalCenter
        active: root.kind === "toggle" || root.kind === "choice" && root.available
        sourceComponent: root.kind === "toggle" ? knob : choice
    }
    Component {
        id: knob
        FarToggle {
            checked: root.on
            lit: root.lit
        }
    }
    Component {
        id: choice
        FarChoice {
            text: root.value
            color: root.ink
            onStepped: by => root.stepped(by)
        }
    }
}
