import QtQuick
import Velko

/// A card above a darkened window. Lies over everything; whoever shows it disables what is below, so that focus stays
/// inside. Its content stands below the title; Escape and a click beside it ask to close.
FocusScope {
    id: root
    property string title
    property real panelWidth: 560
    property real panelHeight: content.childrenRect.height + (title === "" ? 40 : heading.height + 56) + 40
    property bool closeButton: true
    default property alias data: content.data
    readonly property alias body: content
    signal closed

    anchors.fill: parent
    Accessible.role: Accessible.Dialog
    Accessible.name: root.title
    Pad.back: Tr.translate("Close")
    Keys.onEscapePressed: root.closed()

    Rectangle {
        id: scrim
        anchors.fill: parent
        color: Theme.scrim
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: event => event.accepted = true
            onClicked: root.closed()
        }
        NumberAnimation on opacity { from: 0; to: 1; duration: Theme.reduceMotion ? 120 : 200; easing.type: Easing.OutCubic }
    }
    Item {
        id: panel
        anchors.centerIn: parent
        width: Math.min(root.panelWidth, root.width - 48)
        height: Math.min(root.panelHeight, root.height - 48)
        NumberAnimation on opacity { from: 0; to: 1; duration: Theme.reduceMotion ? 120 : 200; easing.type: Easing.OutCubic }

        BorderImage {
            anchors.fill: parent
            anchors.margins: -48
            anchors.topMargin: -16
            anchors.bottomMargin: -80
            visible: !Theme.light
            source: "image://shadow/28/48/60"
            border { left: 124; right: 124; top: 124; bottom: 124 }
        }
        Rectangle {
            anchors.fill: parent
            radius: 28
            color: Theme.overlay
        }
        MouseArea { anchors.fill: parent } // a click inside does not close
        Heading {
            id: heading
            x: 44
            y: 36
            width: panel.width - 88 - (root.closeButton ? 48 : 0)
            text: root.title
            size: 28
            font.weight: 700
            wrapMode: Text.Wrap
            maximumLineCount: 3
        }
        Item {
            id: content
            x: 44
            y: root.title === "" ? 40 : heading.y + heading.height + 20
            width: panel.width - 88
            height: panel.height - y - 40
        }
        TextButton {
            visible: root.closeButton
            anchors.right: parent.right
            anchors.rightMargin: 24
            y: 28
            icon: "close"
            name: Tr.translate("Close")
            kind: "ghost"
            onActivated: root.closed()
        }
    }
}
