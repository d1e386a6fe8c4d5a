import QtQuick
import Velko

/// Covers the display while the game's window is brought onto it.
Rectangle {
    id: root
    required property OverlayFacts facts

    color: Theme.sunken
    Accessible.role: Accessible.Pane
    Accessible.name: title.text

    Glow {
        anchors.horizontalCenter: parent.horizontalCenter
        y: -Theme.px(40)
        width: Theme.px(1200)
        height: Theme.px(1000)
        strength: 0.15
    }
    Repeater {
        model: 4
        CornerMark {
            required property int index
            x: index % 2 ? root.width - width - Theme.px(54) : Theme.px(54)
            y: index > 1 ? root.height - height - Theme.px(54) : Theme.px(54)
            rotation: [0, 90, 270, 180][index]
        }
    }
    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        y: (root.height - height) * 0.52
        width: parent.width - 2 * Theme.px(96)
        Cover {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Theme.px(228)
            height: width * root.facts.ratio
            radius: Theme.px(14)
            cover: root.facts.cover
            consoleID: root.facts.consoleID
        }
        Item {
            width: 1
            height: Theme.px(56)
        }
        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            size: Theme.px(72)
        }
        Item {
            width: 1
            height: Theme.px(44)
        }
        FarHeading {
            id: title
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: Tr.translate("Setting the game up on this screen…")
            size: 46
        }
        Item {
            width: 1
            height: Theme.px(16)
        }
        FarLabel {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: Tr.translate("Don't touch anything: it takes a few seconds.")
            size: 28
            color: Theme.t2
        }
        Item {
            width: 1
            height: Theme.px(40)
        }
        FarHints {
            anchors.horizontalCenter: parent.horizontalCenter
            hints: [{ glyphs: ["b"], text: Tr.translate("Cancel the launch") }]
            onChosen: root.facts.cancelLaunch()
        }
    }
}
