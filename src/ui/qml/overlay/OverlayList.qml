import QtQuick
import Velko

/// The rows of a page, with its heading above where it has one.
Item {
    id: root
    required property OverlayFacts facts

    Column {
        id: head
        x: Theme.px(28)
        width: parent.width - 2 * x
        spacing: Theme.px(8)
        FarHeading {
            width: parent.width
            visible: text !== ""
            text: root.facts.heading
            size: 34
        }
        FarLabel {
            width: parent.width
            visible: text !== ""
            text: root.facts.explanation
            size: 22
            color: Theme.t2
            wrapMode: Text.Wrap
        }
        Item {
            visible: root.facts.heading !== ""
            width: 1
            height: Theme.px(12)
        }
    }
    ListView {
        y: head.height
        width: parent.width
        height: parent.height - y
        spacing: Theme.px(6)
        interactive: contentHeight > height
        clip: interactive
        model: root.facts.rows
        currentIndex: root.facts.selection
        highlightMoveDuration: 0
        delegate: OverlayRowItem {
            width: ListView.view.width
            selected: ListView.isCurrentItem && !root.facts.quitting
            onEntered: root.facts.select(index)
            onChosen: root.facts.choose(index)
            onStepped: by => root.facts.step(index, by)
        }
    }
}
