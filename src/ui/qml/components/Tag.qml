import QtQuick
import Velko

/// A small word with an optional status dot.
Rectangle {
    id: root
    property string text
    property string dot ///< kind of the dot; empty: none

    implicitHeight: 28
    implicitWidth: content.implicitWidth + 22
    radius: 9
    color: Theme.fill2
    Row {
        id: content
        anchors.centerIn: parent
        spacing: 7
        StatusDot {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.dot !== ""
            kind: root.dot
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            size: 13
            font.weight: 600
        }
    }
}
