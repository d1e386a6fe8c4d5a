import QtQuick
import Velko

/// What the library has to say at the top of Home: an unreadable file, a scan under way, what it found.
FocusScope {
    id: root
    required property LibraryStore library
    required property LibraryAlerts alerts

    visible: cards.height > 0
    height: cards.height
    Column {
        id: cards
        width: parent.width
        spacing: 16
        Loader {
            width: parent.width
            active: root.alerts.setAsideText !== ""
            visible: active
            focus: active
            sourceComponent: AlertCard {
                focus: true
                icon: "warning"
                iconColor: Theme.warn
                title: Tr.translate("Your library could not be read")
                text: root.alerts.setAsideText
                action: root.alerts.restoreText
                second: Tr.translate("Keep going without it")
                onActivated: root.library.restoreBackup()
                onSecondActivated: root.alerts.keepGoing()
            }
        }
        Loader {
            width: parent.width
            active: root.alerts.scanText !== ""
            visible: active
            sourceComponent: AlertCard {
                busy: true
                text: root.alerts.scanText
                second: Tr.translate("Stop")
                onSecondActivated: root.library.cancelScan()
            }
        }
        Loader {
            width: parent.width
            active: root.alerts.reportText !== ""
            visible: active
            sourceComponent: AlertCard {
                icon: "check"
                iconColor: Theme.ok
                text: root.alerts.reportText
                second: Tr.translate("Close")
                onSecondActivated: root.alerts.dismissReport()
            }
        }
    }
}
