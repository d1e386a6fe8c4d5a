import QtQuick
import Velko

/// A page that is not built yet and says so. Its texts are given in English.
FocusScope {
    id: root
    required property string title
    required property string text
    required property string icon

    Heading {
        x: Theme.contentX
        y: 24
        text: Tr.translate(root.title)
        size: 34
        font.weight: 700
    }
    EmptyState {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.max(80, (parent.height - height) / 2 - 40)
        width: Math.min(760, Theme.contentWidth)
        icon: root.icon
        title: Tr.translate("Not here yet")
        text: Tr.translate(root.text)
    }
}
