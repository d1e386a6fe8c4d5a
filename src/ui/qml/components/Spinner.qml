import QtQuick
import Velko

/// Something is being waited for. Moves only while it is visible; three steady dots under reduced motion.
Item {
    id: root
    property real size: 22
    property color color: Theme.accent

    width: size
    height: size
    Accessible.role: Accessible.ProgressBar
    Accessible.name: Tr.translate("Please wait")

    Icon {
        visible: !Theme.reduceMotion
        name: "spinner-track"
        size: root.size
        color: Qt.alpha(Theme.t1, 0.14)
    }
    Image {
        anchors.fill: parent
        visible: !Theme.reduceMotion
        sourceSize.width: root.size * 2
        sourceSize.height: root.size * 2
        source: "image://icon/spinner/" + String(root.color).substring(1)
        smooth: true
        // Not an animator: Qt 6.4 goes on ticking for one whose window was hidden before it was destroyed.
        NumberAnimation on rotation {
            running: root.visible && root.Window.visibility !== Window.Hidden && !Theme.reduceMotion
            from: 0
            to: 360
            duration: 1100
            loops: Animation.Infinite
        }
    }
    Row {
        anchors.centerIn: parent
        visible: Theme.reduceMotion
        spacing: root.size / 8
        Repeater {
            model: 3
            Rectangle {
                width: root.size / 5
                height: width
                radius: width / 2
                color: root.color
            }
        }
    }
}
