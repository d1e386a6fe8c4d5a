import QtQuick
import Velko

/// Play time by day as bars. `days`: values of the type DayBar.
Item {
    id: root
    required property var days
    property bool labels: true ///< the day's name under each bar
    property real gap: 14
    readonly property real barHeight: height - (labels ? 24 : 0)

    Row {
        anchors.fill: parent
        spacing: root.gap
        Repeater {
            model: root.days
            Item {
                id: day
                required property var modelData
                width: (root.width - root.gap * (root.days.length - 1)) / root.days.length
                height: root.height
                Accessible.role: Accessible.StaticText
                Accessible.name: day.modelData.name + ": " + day.modelData.time
                Rectangle {
                    y: root.barHeight - height
                    width: parent.width
                    height: Math.max(4, day.modelData.share * root.barHeight)
                    radius: Math.min(6, height / 2)
                    color: day.modelData.today ? Theme.t1 : day.modelData.share > 0 ? (root.labels ? Theme.fill3 : Theme.line2) : Theme.fill2
                }
                Label {
                    visible: root.labels
                    anchors.horizontalCenter: parent.horizontalCenter
                    anchors.bottom: parent.bottom
                    text: day.modelData.label
                    size: 13
                    font.weight: day.modelData.today ? 600 : 500
                    color: day.modelData.today ? Theme.t1 : Theme.t3
                }
            }
        }
    }
}
