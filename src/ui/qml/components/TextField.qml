import QtQuick
import Velko

/// One line of text to type. Left and right stay inside while there is text to move through.
FocusScope {
    id: root
    property alias text: input.text
    property string placeholder
    property string icon
    property string name: placeholder ///< spoken by screen readers
    readonly property bool lit: input.activeFocus
    signal edited(string text) ///< by the user
    signal accepted(string text)

    function selectAll() { input.selectAll() }

    implicitHeight: 44
    implicitWidth: 272

    Rectangle {
        anchors.fill: parent
        radius: 13
        color: Theme.sunken
        border.width: root.lit ? 2 : 1
        border.color: root.lit && Theme.inputMode !== "pointer" ? Theme.accent : root.lit ? Theme.line2 : Theme.line
    }
    Icon {
        id: drawing
        visible: root.icon !== ""
        x: 15
        anchors.verticalCenter: parent.verticalCenter
        name: root.icon
        size: 19
        color: Theme.t3
    }
    Label {
        visible: input.text === ""
        anchors.left: input.left
        anchors.right: input.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.placeholder
        color: Theme.t3
    }
    TextInput {
        id: input
        anchors.left: parent.left
        anchors.leftMargin: root.icon === "" ? 15 : 45
        anchors.right: parent.right
        anchors.rightMargin: clear.visible ? 42 : 15
        anchors.verticalCenter: parent.verticalCenter
        focus: true
        activeFocusOnTab: true
        clip: true
        selectByMouse: true
        color: Theme.t1
        selectionColor: Theme.accent
        selectedTextColor: Theme.onAccent
        font.family: Theme.textFamily
        font.pixelSize: Theme.dtxt(15)
        renderType: Theme.textRendering
        Accessible.role: Accessible.EditableText
        Accessible.name: root.name
        onTextEdited: root.edited(text)
        Pad.confirm: Tr.translate("Confirm")
        Keys.onReturnPressed: root.accepted(text)
        Keys.onEnterPressed: root.accepted(text)
        cursorDelegate: Rectangle {
            visible: input.cursorVisible && input.activeFocus
            width: 2
            color: Theme.t1
        }
    }
    HoverHandler { cursorShape: Qt.IBeamCursor }
    TapHandler { onTapped: input.forceActiveFocus(Qt.MouseFocusReason) }
    Pressable {
        id: clear
        visible: input.text !== ""
        activeFocusOnTab: false
        name: Tr.translate("Clear")
        anchors.right: parent.right
        width: 42
        height: parent.height
        onActivated: {
            input.clear()
            root.edited("")
            input.forceActiveFocus(Qt.MouseFocusReason)
        }
        Icon {
            anchors.centerIn: parent
            name: "close"
            size: 16
            color: clear.hovered ? Theme.t1 : Theme.t3
        }
    }
}
