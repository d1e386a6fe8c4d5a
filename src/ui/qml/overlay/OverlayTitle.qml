import QtQuick
import Velko

/// Which game it is: its cover and name, where it comes from, and below a page's heading.
Row {
    id: root
    required property OverlayFacts facts
    property real coverHeight: Theme.px(112)

    height: coverHeight
    spacing: Theme.px(28)
    Cover {
        anchors.verticalCenter: parent.verticalCenter
        width: root.coverHeight * 0.75
        height: Math.min(root.coverHeight, width * root.facts.ratio)
        radius: Theme.px(10)
        cover: root.facts.cover
        consoleID: root.facts.consoleID
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        width: root.width - x
        spacing: Theme.px(12)
        FarHeading {
            width: parent.width
            text: root.facts.title
        }
        Row {
            spacing: Theme.px(16)
            Repeater {
                model: root.facts.origin
                Row {
                    id: part
                    required property string modelData
                    required property int index
                    spacing: Theme.px(16)
                    Rectangle {
                        visible: part.index > 0
                        anchors.verticalCenter: parent.verticalCenter
                        width: Theme.px(6)
                        height: width
                        radius: width / 2
                        color: Theme.t3
                    }
                    FarLabel {
                        text: part.modelData
                        color: Theme.t2
                    }
                }
            }
        }
    }
}
