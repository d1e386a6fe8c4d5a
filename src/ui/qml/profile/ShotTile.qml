import QtQuick
import Velko

/// A screenshot in small, with a button to remove it while the pointer is over it.
Item {
    id: root
    required property int index
    required property string url
    required property string source
    required property string title
    required property string dateText
    property bool lit: false
    signal activated
    signal removalWanted

    width: 288
    height: 162
    z: lit ? 1 : 0
    Accessible.role: Accessible.ListItem
    Accessible.name: title + ", " + dateText
    Accessible.onPressAction: root.activated()

    Item {
        anchors.fill: parent
        scale: root.lit && Theme.effects ? 1.06 : 1
        Behavior on scale { NumberAnimation { duration: Theme.focus; easing.type: Easing.OutCubic } }
        ShotImage {
            anchors.fill: parent
            shot: root.source
            radius: 12
        }
        FocusRing {
            visible: root.lit
            radiusInside: 12
        }
    }
    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler { onTapped: root.activated() }
    Loader {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 8
        active: hover.hovered && Theme.inputMode === "pointer"
        sourceComponent: Rectangle {
            width: 40
            height: 40
            radius: 20
            color: Theme.badge
            TextButton {
                anchors.fill: parent
                activeFocusOnTab: false
                size: 40
                round: true
                kind: "ghost"
                icon: "trash"
                name: Tr.translate("Delete")
                onActivated: root.removalWanted()
            }
        }
    }
}
