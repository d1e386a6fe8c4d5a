import QtQuick
import Velko

/// Running text on a surface that is seen from the sofa.
Text {
    property real size: 24

    color: Theme.t1
    font.family: Theme.textFamily
    font.pixelSize: Theme.txt(size)
    font.weight: 500
    renderType: Text.QtRendering
    textFormat: Text.PlainText
    elide: Text.ElideRight
}
