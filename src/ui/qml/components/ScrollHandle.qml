import QtQuick
import Velko

/// Where a scrolled view stands; can be dragged. Lies at the right edge of its view.
Item {
    id: root
    required property Flickable view
    readonly property real travel: view.contentHeight - view.height
    readonly property real length: Math.max(48, height * view.visibleArea.heightRatio)

    anchors.top: parent.top
    anchors.bottom: parent.bottom
    anchors.right: parent.right
    width: 14
    visible: travel > 1

    Rectangle {
        id: handle
        x: 4
        y: root.travel > 0 ? (root.view.contentY - root.view.originY) / root.travel * (root.height - root.length) : 0
        width: 6
        height: root.length
        radius: 3
        color: hover.hovered || drag.active ? Theme.line2 : Theme.fill2
    }
    HoverHandler { id: hover }
    DragHandler {
        id: drag
        property real start
        target: null
        xAxis.enabled: false
        onActiveChanged: if (active) start = root.view.contentY
        onActiveTranslationChanged: if (active)
            root.view.contentY = Math.max(root.view.originY, Math.min(root.view.originY + root.travel,
                start + activeTranslation.y * root.travel / (root.height - root.length)))
    }
}
