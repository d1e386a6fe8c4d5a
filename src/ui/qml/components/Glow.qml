import QtQuick
import Velko

/// One soft light under everything, in the colour of the game that the screen is about.
Image {
    id: root
    property color tint: Theme.tint
    property real strength: 0.12

    source: "image://glow/" + String(tint).substring(1)
    opacity: Theme.light ? 0.16 : strength
    smooth: true
}
