import QtQuick
import Velko

/// One folder or file of the picker.
Item {
    id: root
    required property string name
    required property string path
    required property bool file
    required property bool chosen ///< a file that is to be taken
    property bool marked: false
    signal activated

    height: 44
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.checkable: file
    Accessible.checked: chosen
    Accessible.onPressAction: root.activated()

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: root.marked ? Theme.accent : hover.hovered && Theme.inputMode === "pointer" ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
    }
    Icon {
        x: 12
        anchors.verticalCenter: parent.verticalCenter
        name: root.file ? "file" : "folder"
        color: root.marked ? Theme.onAccent : Theme.t2
    }
    Label {
        x: 44
        width: parent.width - 80
        anchors.verticalCenter: parent.verticalCenter
        text: root.name
        color: root.marked ? Theme.onAccent : Theme.t1
    }
    Icon {
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        visible: !root.file || root.chosen
        name: root.chosen ? "check" : "right"
        size: root.chosen ? 20 : 16
        color: root.marked ? Theme.onAccent : root.chosen ? Theme.ok : Theme.t3
    }
    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler { onTapped: root.activated() }
}
