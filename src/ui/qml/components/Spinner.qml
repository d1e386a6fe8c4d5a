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

    Image {
        anchors.fill: parent
        visible: !Theme.reduceMotion
        sourceSize.width: root.size * 2
        sourceSize.height: root.size * 2
        source: "image://icon/spinner/" + String(root.color).substring(1)
        smooth: true
        RotationAnimator on rotation {
            running: root.visible && !Theme.reduceMotion
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
