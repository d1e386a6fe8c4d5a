import QtQuick
import Velko

/// How the controller is set up in this emulator, step by step, and two buttons. On a small display the steps scroll as
/// the selection moves on to the second button.
Item {
    id: root
    required property OverlayFacts facts

    NumberAnimation {
        target: page
        property: "contentY"
        to: root.facts.selection === 1 ? Math.max(0, page.contentHeight - page.height) : 0
        duration: Theme.focus
        easing.type: Easing.OutCubic
        onToChanged: restart()
    }
    Flickable {
        id: page
        width: parent.width
        height: parent.height - buttons.height - Theme.px(24)
        contentHeight: content.height
        interactive: contentHeight > height
        clip: interactive
        Column {
            id: content
            x: Theme.px(28)
            width: parent.width - 2 * x
            spacing: Theme.px(14)
            FarHeading {
                width: parent.width
                text: root.facts.heading
                size: 34
                wrapMode: Text.Wrap
            }
            FarLabel {
                width: parent.width
                text: root.facts.explanation
                size: 22
                color: Theme.t2
                wrapMode: Text.Wrap
                lineHeight: 1.2
            }
            Repeater {
                model: root.facts.steps
                Item {
                    id: step
                    required property string modelData
                    required property int index
                    width: content.width
                    height: Math.max(Theme.px(40), words.height)
                    Accessible.role: Accessible.ListItem
                    Accessible.name: (step.index + 1) + ". " + step.modelData
                    Rectangle {
                        width: Theme.px(36)
                        height: width
                        radius: width / 2
                        color: Theme.fill2
                        FarLabel {
                            anchors.centerIn: parent
                            text: step.index + 1
                            size: 20
                            font.weight: 600
                        }
                    }
                    FarLabel {
                        id: words
                        x: Theme.px(56)
                        y: Theme.px(4)
                        width: parent.width - x
                        text: step.modelData
                        size: 22
                        wrapMode: Text.Wrap
                        lineHeight: 1.2
                    }
                }
            }
        }
    }
    Row {
        id: buttons
        x: Theme.px(28)
        y: Math.min(page.height, page.contentHeight) + Theme.px(24)
        spacing: Theme.px(16)
        Repeater {
            model: [Tr.translate("Open the emulator's settings"), Tr.translate("It works now")]
            FarButton {
                required property string modelData
                required property int index
                text: modelData
                lit: root.facts.selection === index
                onEntered: root.facts.select(index)
                onChosen: root.facts.choose(index)
            }
        }
    }
}
