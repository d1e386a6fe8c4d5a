import QtQuick
import Velko

/// A page that is higher than the window. Follows the focus, so that the focused control is always in view.
FocusScope {
    id: root
    required property FocusKeeper keeper
    property real contentHeight: column.childrenRect.height
    property real revealMargin: 96
    default property alias content: column.data
    readonly property Item focused: root.activeFocus ? root.Window.activeFocusItem : null

    onFocusedChanged: if (focused && Theme.inputMode !== "pointer")
        scroll.to = keeper.revealed(view, view.contentItem, scroll.running ? scroll.to : view.contentY, revealMargin)

    Flickable {
        id: view
        anchors.fill: parent
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
    ScrollHandle { view: view }
}
