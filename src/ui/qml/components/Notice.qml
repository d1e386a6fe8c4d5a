import QtQuick
import Velko

/// A short message that goes by itself. `kind`: "ok", "warn", "busy" or anything else.
Item {
    id: root
    property string text
    property string icon
    property string kind

    readonly property real room: Math.min(640, Theme.windowWidth - 64)

    visible: text !== ""
    width: Math.min(room, line.implicitWidth + 92)
    height: line.lineCount > 1 ? 84 : 62
    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.text

    BorderImage {
        anchors.fill: parent
        anchors.margins: -20
        anchors.topMargin: -10
        anchors.bottomMargin: -30
        source: "image://shadow/16/20/35"
        border { left: 56; right: 56; top: 56; bottom: 56 }
    }
    Rectangle {
        anchors.fill: parent
        radius: 16
        color: "#F20C0E14"
        border.width: 1
        border.color: "#1FF4F1EB"
    }
    Icon {
        x: 22
        anchors.verticalCenter: parent.verticalCenter
        name: root.icon
        size: 24
        color: root.kind === "ok" ? "#7ADBA8" : root.kind === "warn" ? "#F5CB5C" : "#F4F1EB"
    }
    Label {
        id: line
        x: 62
        width: root.room - 92
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        size: 15.5
        font.weight: 600
        color: "#F4F1EB"
        wrapMode: Text.Wrap
        maximumLineCount: 2
    }
}
