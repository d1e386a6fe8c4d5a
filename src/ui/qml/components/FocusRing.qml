import QtQuick
import Velko

/// The ring around what the confirm button will act on. Lies around its parent; `gap` is the ground between.
Rectangle {
    property real radiusInside: 8
    property real gap: 4
    property real thickness: 4

    anchors.fill: parent
    anchors.margins: -gap - thickness
    radius: radiusInside + gap + thickness
    color: "transparent"
    border.width: thickness
    border.color: Theme.accent
}
