import QtQuick
import Velko

/// Nothing here yet: empty places on a shelf, a title, one sentence and, where there is one, an action.
FocusScope {
    id: root
    property string icon: "shelf"
    property string title
    property string text
    property string action ///< empty: no button
    property string actionIcon
    signal activated

    implicitWidth: 760
    implicitHeight: content.implicitHeight

    Column {
        id: content
        width: parent.width
        Item {
            width: parent.width
            height: 236
            DashedFrame {
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.horizontalCenterOffset: -186
                y: 42
                width: 144
                height: 192
                opacity: 0.5
            }
            DashedFrame {
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.horizontalCenterOffset: 186
                y: 42
                width: 144
                height: 192
                opacity: 0.5
            }
            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                y: 2
                width: 174
                height: 232
                radius: 12
                color: Theme.fill1
                DashedFrame { anchors.fill: parent }
                Icon {
                    anchors.centerIn: parent
                    name: root.icon
                    size: 68
                    color: Theme.t2
                }
            }
            ShelfLine {
                anchors.horizontalCenter: parent.horizontalCenter
                y: 234
                width: Math.min(parent.width, 640)
            }
        }
        Heading {
            topPadding: 40
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: root.title
            size: 34
            font.weight: 700
        }
        Label {
            topPadding: 12
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(560, parent.width)
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            lineHeight: 1.3
            text: root.text
            size: 16.5
            color: Theme.t2
        }
        Item {
            visible: root.action !== ""
            width: parent.width
            height: 84
            TextButton {
                anchors.horizontalCenter: parent.horizontalCenter
                y: 28
                focus: true
                kind: "primary"
                size: 56
                text: root.action
                icon: root.actionIcon
                onActivated: root.activated()
            }
        }
    }
}
