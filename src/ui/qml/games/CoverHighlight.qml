import QtQuick
import Velko

/// The one focus mark of a grid: the ring around the cover that the confirm button will act on, and its shadow.
Item {
    id: root
    property GameCell cell ///< may be null
    property bool lit: false
    readonly property real grown: Theme.effects ? 1.06 : 1

    visible: lit && cell !== null

    Item {
        x: (root.width - width) / 2
        y: root.width * 4 / 3 - height
        width: root.width * root.grown
        height: (root.cell ? root.cell.coverHeight : root.width) * root.grown

        BorderImage {
            anchors.fill: parent
            anchors.margins: -24
            anchors.topMargin: -6
            anchors.bottomMargin: -42
            visible: !Theme.light && Theme.effects
            source: "image://shadow/8/24/60"
            border { left: 56; right: 56; top: 56; bottom: 56 }
        }
        FocusRing { radiusInside: 8 }
    }
}
