import QtQuick
import Velko

/// One tab of a row of tabs; the lit line says which one is shown.
Pressable {
    id: root
    property string text
    property bool current: false
    property real padding: 18

    name: text
    role: Accessible.PageTab
    Accessible.selected: current
    implicitHeight: 44
    implicitWidth: label.implicitWidth + 2 * padding

    Rectangle {
        visible: root.lit
        anchors.fill: parent
        anchors.bottomMargin: 4
        radius: 12
        color: Theme.accent
    }
    Label {
        id: label
        anchors.centerIn: parent
        anchors.verticalCenterOffset: root.lit ? -2 : 0
        text: root.text
        size: 16
        font.weight: root.current ? 600 : 500
        color: root.lit ? Theme.onAccent : root.current || root.hovered ? Theme.t1 : Theme.t2
    }
    Loader {
        active: root.current && !root.lit
        x: root.padding - 8
        width: parent.width - 2 * x
        anchors.bottom: parent.bottom
        sourceComponent: LitLine { }
    }
}
