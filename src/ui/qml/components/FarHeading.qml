import QtQuick
import Velko

/// Titles on a surface that is seen from the sofa.
Text {
    property real size: 44

    color: Theme.t1
    font.family: size < 34 ? Theme.textFamily : Theme.displayFamily
    font.pixelSize: Theme.txt(size)
    font.weight: 700
    font.letterSpacing: -0.022 * Theme.txt(size)
    renderType: Text.QtRendering
    textFormat: Text.PlainText
    elide: Text.ElideRight
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
