import QtQuick
import Velko

/// The commands of the program, in a card below the menu button.
FocusScope {
    id: root
    required property AppState app
    required property Notices notices
    required property OwnPages ownPages
    readonly property string noBrowser: Tr.translate("The page can't be opened here. Install the package xdg-utils and a browser, then try again.")
    signal closed
    signal aboutWanted

    Pad.back: Tr.translate("Close")
    Keys.onEscapePressed: root.closed()
    Accessible.role: Accessible.PopupMenu
    Accessible.name: Tr.translate("Menu")

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.closed()
        onWheel: event => event.accepted = true
    }
    Item {
        anchors.right: parent.right
        anchors.rightMargin: 40
        y: 76
        width: 296
        height: rows.height + 20
        BorderImage {
            anchors.fill: parent
            anchors.margins: -24
            anchors.topMargin: -12
            anchors.bottomMargin: -36
            source: "image://shadow/18/24/45"
            border { left: 66; right: 66; top: 66; bottom: 66 }
        }
        Rectangle {
            anchors.fill: parent
            radius: 18
            color: Theme.overlay
            border.width: 1
            border.color: Theme.line
        }
        Column {
            id: rows
            x: 10
            y: 10
            width: parent.width - 20
            ListRow {
                width: parent.width
                focus: true
                icon: "settings"
                text: Tr.translate("Settings…")
                value: "Ctrl+,"
                onActivated: {
                    root.closed()
                    root.app.settings = true
                }
            }
            ListRow {
                width: parent.width
                icon: "update"
                text: Tr.translate("Check for Updates…")
                onActivated: {
                    root.closed()
                    root.notices.show(Tr.translate("No address for updates is set: your package manager updates Velko."), "info")
                }
            }
            ListRow {
                width: parent.width
                icon: "heart"
                text: Tr.translate("Support Velko…")
                onActivated: {
                    root.closed()
                    if (!root.ownPages.donation) root.notices.show(Tr.translate("No address for donations is set in this version of Velko."), "info")
                    else if (!root.ownPages.openDonation()) root.notices.show(root.noBrowser, "warn")
                }
            }
            ListRow {
                width: parent.width
                icon: "flag"
                text: Tr.translate("Report a Problem…")
                onActivated: {
                    root.closed()
                    root.app.report = true
                }
            }
            ListRow {
                width: parent.width
                icon: "social"
                text: Tr.translate("Join the Discord…")
                onActivated: {
                    root.closed()
                    if (!root.ownPages.invitation) root.notices.show(Tr.translate("No invitation address is set in this version of Velko."), "info")
                    else if (!root.ownPages.openInvitation()) root.notices.show(root.noBrowser, "warn")
                }
            }
            Item {
                width: parent.width
                height: 13
                Rectangle {
                    x: 8
                    y: 6
                    width: parent.width - 16
                    height: 1
                    color: Theme.line
                }
            }
            ListRow {
                width: parent.width
                icon: "info"
                text: Tr.fill("About %@", ["Velko"])
                onActivated: root.aboutWanted()
            }
            ListRow {
                width: parent.width
                icon: "power"
                text: Tr.translate("Quit Velko")
                value: "Ctrl+Q"
                onActivated: {
                    root.app.quitting = true
                    Qt.quit()
                }
            }
        }
    }
}
