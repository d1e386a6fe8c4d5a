import QtQuick
import Velko

/// A rounded corner: this is the screen that is being set up.
Item {
    id: root
    property bool atRight: false
    property bool atBottom: false

    width: Theme.px(56)
    height: width
    clip: true
    Rectangle {
        width: parent.width * 2
        height: parent.height * 2
        x: root.atRight ? -root.width : 0
        y: root.atBottom ? -root.height : 0
        radius: Theme.px(18)
        color: "transparent"
        border.width: Theme.px(4)
        border.color: "#47F4F1EB"
    }
}
