import QtQuick
import Velko

/// One of several values, with the way to the one before and the one after, on a surface seen from the sofa.
Row {
    id: root
    property string text
    property color color: Theme.t1
    signal stepped(int by)

    spacing: Theme.px(14)
    Repeater {
        model: [-1, 0, 1]
        Item {
            id: part
            required property int modelData
            width: modelData === 0 ? value.implicitWidth : Theme.px(40)
            height: Theme.px(60)
            FarLabel {
                id: value
                visible: part.modelData === 0
                anchors.centerIn: parent
                text: root.text
                size: 26
                color: root.color
            }
            Icon {
                visible: part.modelData !== 0
                anchors.centerIn: parent
                name: part.modelData < 0 ? "left" : "right"
                size: Theme.px(26)
                color: root.color
            }
            TapHandler {
                enabled: part.modelData !== 0
                gesturePolicy: TapHandler.ReleaseWithinBounds
                onTapped: root.stepped(part.modelData)
            }
        }
    }
}
