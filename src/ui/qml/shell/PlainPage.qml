import QtQuick
import Velko

/// A page that has one thing to say.
FocusScope {
    id: root
    property string title
    property string text
    property string icon: "shelf"

    Heading {
        x: Theme.contentX
        y: 24
        text: root.title
        size: 34
        font.weight: 700
    }
    EmptyState {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.max(80, (parent.height - height) / 2 - 40)
        width: Math.min(760, Theme.contentWidth)
        icon: root.icon
        title: Tr.translate("Not here yet")
        text: root.text
    }
}
