import QtQuick
import Velko

/// Name, tabs, the connected controller, Big Picture and the menu.
FocusScope {
    id: root
    required property AppState app
    required property string controllerName ///< empty: none
    readonly property bool narrow: width < 1180
    readonly property Item focusEntry: buttons.count > 0 ? buttons.itemAt(sections.findIndex(section => section.name === app.tab)) : null
    required property Item focusExit
    readonly property var sections: [
        { name: "home", title: "Home" }, { name: "games", title: "Games" }, { name: "consoles", title: "Consoles" },
        { name: "essentials", title: "Essentials" }, { name: "profile", title: "Profile" }, { name: "social", title: "Social" }
    ]
    signal menuWanted
    signal bigPictureWanted

    height: 80

    Row {
        x: root.narrow ? 28 : 40
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12
        Image {
            anchors.verticalCenter: parent.verticalCenter
            width: 30
            height: 30
            sourceSize.width: 60
            sourceSize.height: 60
            source: "image://icon/velko-mark"
        }
        Heading {
            visible: root.width >= 1000
            anchors.verticalCenter: parent.verticalCenter
            text: "Velko"
            size: 21
        }
    }
    Row {
        id: tabs
        x: root.narrow ? 28 + (root.width >= 1000 ? 128 : 48) : (root.width - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.narrow ? 0 : 8
        Accessible.role: Accessible.PageTabList
        Accessible.name: Tr.translate("Sections")
        Repeater {
            id: buttons
            model: root.sections
            TabButton {
                required property var modelData
                text: Tr.translate(modelData.title)
                current: root.app.tab === modelData.name
                focus: current
                padding: root.narrow ? 12 : 18
                onActivated: {
                    root.app.tab = modelData.name
                    root.app.detailGame = ""
                    root.app.selectedConsole = ""
                }
            }
        }
    }
    Repeater {
        model: Theme.inputMode === "pad" && !root.narrow ? ["lb", "rb"] : []
        Glyph {
            required property int index
            required property string modelData
            x: index === 0 ? tabs.x - width - 16 : tabs.x + tabs.width + 16
            anchors.verticalCenter: parent.verticalCenter
            name: modelData
            size: 20
            color: Theme.t3
        }
    }
    Row {
        anchors.right: parent.right
        anchors.rightMargin: root.narrow ? 20 : 40
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10
        Loader {
            anchors.verticalCenter: parent.verticalCenter
            active: root.controllerName !== ""
            visible: active
            sourceComponent: Icon {
                name: "controller"
                size: 22
                color: Theme.ok
                Accessible.role: Accessible.Indicator
                Accessible.name: root.controllerName
            }
        }
        TextButton {
            text: root.narrow ? "" : Tr.translate("Big Picture")
            name: Tr.translate("Big Picture")
            icon: "bigpicture"
            kind: root.narrow ? "ghost" : "plain"
            round: true
            size: 44
            textSize: 15
            onActivated: root.bigPictureWanted()
        }
        TextButton {
            icon: "settings"
            name: Tr.translate("Menu")
            kind: "ghost"
            round: true
            size: 44
            onActivated: root.menuWanted()
        }
    }
}
