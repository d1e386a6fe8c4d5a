import QtQuick
import Velko

/// A page that is higher than the window. Follows the focus, so that the focused control is always in view.
FocusScope {
    id: root
    required property FocusKeeper keeper
    property real contentHeight: column.childrenRect.height
    property real revealMargin: 96
    property color ground: Theme.bg ///< what it fades into at its upper edge
    default property alias content: column.data
    property alias behind: back.data ///< stays where it is while the page scrolls
    readonly property Item focused: root.activeFocus ? root.Window.activeFocusItem : null

    onFocusedChanged: if (focused && Theme.inputMode !== "pointer")
        scroll.to = keeper.revealed(view, view.contentItem, scroll.running ? scroll.to : view.contentY, revealMargin)

    // Below the last control there may still be something to read.
    Keys.onDownPressed: if (!keeper.move(Qt.Key_Down))
        scroll.to = Math.max(0, Math.min(view.contentHeight - view.height, view.contentY + view.height / 2))

    Item {
        id: back
        anchors.fill: parent
    }
    Flickable {
        id: view
        anchors.fill: parent
        clip: true
        contentWidth: width
        contentHeight: root.contentHeight
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true
        Item {
            id: column
            width: view.width
            height: root.contentHeight
        }
        NumberAnimation on contentY {
            id: scroll
            running: false
            duration: Theme.scroll
            easing.type: Easing.OutCubic
            onToChanged: if (to !== view.contentY) restart()
        }
    }
    Rectangle {
        visible: view.contentY > 0
        width: parent.width
        height: 28
        gradient: Gradient {
            GradientStop { position: 0; color: root.ground }
            GradientStop { position: 1; color: Qt.alpha(root.ground, 0) }
        }
    }
    ScrollHandle { view: view }
}
