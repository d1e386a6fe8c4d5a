import QtQuick
import Velko

/// Every console there is, by release date or by maker.
FocusScope {
    id: root
    required property AppState app
    required property LibraryLists lists
    readonly property ConsoleListModel consoles: lists.consoles
    readonly property bool narrow: Theme.contentWidth < 1130 ///< the choices stand in two lines

    Heading {
        id: title
        x: Theme.contentX
        y: 28
        text: Tr.translate("Consoles")
        size: 34
    }
    Label {
        x: title.x + title.width + 16
        anchors.baseline: title.baseline
        text: root.consoles.countText
        color: Theme.t2
    }
    Binding { target: field; property: "text"; value: root.consoles.query }
    SearchField {
        id: field
        x: Theme.contentX + Theme.contentWidth - width
        y: 26
        width: Math.min(320, Theme.contentWidth * 0.4)
        placeholder: Tr.translate("Search a console")
        onEdited: text => root.consoles.query = text
        onAccepted: grid.forceActiveFocus(Qt.OtherFocusReason)
    }
    EraChips {
        x: Theme.contentX - 12
        y: 94
        consoles: root.consoles
    }
    Row {
        x: root.narrow ? Theme.contentX : Theme.contentX + Theme.contentWidth - width
        y: root.narrow ? 144 : 92
        spacing: 18
        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: Tr.translate("With my games")
            font.weight: 500
            TapHandler { onTapped: root.consoles.onlyMine = !root.consoles.onlyMine }
        }
        Toggle {
            anchors.verticalCenter: parent.verticalCenter
            name: Tr.translate("With my games")
            checked: root.consoles.onlyMine
            onActivated: root.consoles.onlyMine = !root.consoles.onlyMine
        }
        SegmentedControl {
            width: 372
            name: Tr.translate("Order")
            options: root.lists.groupings
            value: root.consoles.byMaker ? "maker" : "date"
            onChosen: value => root.consoles.byMaker = value === "maker"
        }
    }
    ConsoleGrid {
        id: grid
        x: Theme.contentX - edge
        y: root.narrow ? 200 : 156
        width: Theme.contentWidth + 2 * edge
        height: parent.height - y
        focus: true
        consoles: root.consoles
        remembered: root.lists.currentConsole
        onArrived: consoleID => root.lists.currentConsole = consoleID
        onOpened: consoleID => root.app.selectedConsole = consoleID
        onTyped: text => {
            root.consoles.query = text
            field.forceActiveFocus(Qt.OtherFocusReason)
        }
    }
    EmptyState {
        visible: root.consoles.count === 0
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.max(grid.y, (parent.height - height) / 2)
        width: Math.min(760, Theme.contentWidth)
        icon: "console"
        title: root.consoles.noMatchText
        action: Tr.translate("Show all consoles")
        actionIcon: "grid"
        onActivated: root.consoles.showAll()
    }
}
