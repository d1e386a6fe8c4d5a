import QtQuick
import Velko

/// Titles and large numbers.
Text {
    property real size: 22

    color: Theme.t1
    font.family: Theme.displayFamily
    font.pixelSize: Theme.dtxt(size)
    font.weight: 700
    font.letterSpacing: -0.022 * Theme.dtxt(size)
    renderType: Theme.textRendering
    textFormat: Text.PlainText
    elide: Text.ElideRight
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
