import QtQuick
import Velko

/// One folder of the folder picker.
Item {
    id: root
    required property string name
    required property string path
    property bool marked: false
    signal activated

    height: 44
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.onPressAction: root.activated()

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: root.marked ? Theme.accent : hover.hovered && Theme.inputMode === "pointer" ? Theme.fill1 : Qt.alpha(Theme.fill1, 0)
    }
    Icon {
        x: 12
        anchors.verticalCenter: parent.verticalCenter
        name: "folder"
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
        name: "right"
        size: 16
        color: root.marked ? Theme.onAccent : Theme.t3
    }
    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler { onTapped: root.activated() }
}
