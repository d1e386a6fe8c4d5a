import QtQuick
import Velko

/// Play, what is happening instead while the game starts, and going on from the save state.
FocusScope {
    id: root
    required property GameFacts game
    property real size: 56

    implicitHeight: flow.height
    Flow {
        id: flow
        width: parent.width
        spacing: 12
        TextButton {
            id: play
            visible: !root.game.launching
            focus: visible
            kind: "primary"
            size: root.size
            icon: "play"
            text: root.game.running ? Tr.translate("Back to the game") : Tr.translate("Play")
            onActivated: root.game.play()
        }
        TextButton {
            visible: root.game.hasState && !root.game.launching && !root.game.running
            kind: "strong"
            size: root.size
            textSize: 15.5
            icon: "load"
            text: Tr.translate("Continue from your save state")
            onActivated: root.game.continueFromState()
        }
        Loader {
            active: root.game.launching
            visible: active
            sourceComponent: Row {
                height: root.size
                spacing: 16
                Spinner {
                    anchors.verticalCenter: parent.verticalCenter
                    size: 26
                }
                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: root.game.launchText
                    size: 16.5
                    font.weight: 600
                }
            }
        }
        TextButton {
            visible: root.game.launching
            focus: visible
            kind: "strong"
            size: root.size
            textSize: 15.5
            text: Tr.translate("Cancel")
            onActivated: root.game.cancel()
        }
    }
}
