import QtQuick
import Velko

/// The window's pages. Files and folders dropped anywhere on them are added to the library, unless a place of its own
/// inside takes them.
DropArea {
    id: root
    required property LibraryAlerts alerts
    required property Notices notices
    property bool quiet: false ///< what lies below shows by itself where things are dropped

    keys: ["text/uri-list"]
    onDropped: drop => {
        drop.accept(Qt.CopyAction)
        if (!root.alerts.addDropped(drop.urls))
            root.notices.show(Tr.translate("Only files and folders on this computer can be added."), "warn")
    }

    Loader {
        anchors.fill: parent
        z: 1
        active: root.containsDrag && !root.quiet
        sourceComponent: Rectangle {
            color: Theme.scrim
            DashedFrame {
                anchors.fill: parent
                anchors.margins: 24
                radius: 28
                color: Theme.accent
            }
            Column {
                anchors.centerIn: parent
                spacing: 20
                Icon {
                    anchors.horizontalCenter: parent.horizontalCenter
                    name: "drop"
                    size: 64
                }
                Heading {
                    text: Tr.translate("Drop games or folders of games to add them")
                    size: 34
                }
            }
        }
    }
}
