import QtQuick
import Velko

/// The library is empty: one sentence and one thing to do.
FocusScope {
    id: root
    property bool scanning: false
    signal folderWanted

    implicitHeight: state.implicitHeight
    EmptyState {
        id: state
        anchors.centerIn: parent
        width: Math.min(760, parent.width)
        focus: true
        icon: "controller"
        title: Tr.translate("Welcome to Velko")
        text: root.scanning ? Tr.translate("Velko looks through your folder now. Games appear here as soon as it is done.")
            : Tr.translate("Show Velko where your games are. It finds them, sorts them by console and starts each one in the right emulator. Nothing is moved or changed.")
        action: root.scanning ? "" : Tr.translate("Add a folder of games")
        actionIcon: "folder"
        onActivated: root.folderWanted()
    }
}
