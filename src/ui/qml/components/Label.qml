import QtQuick
import Velko

/// Running text. Never reads its content as mark-up.
Text {
    property real size: 15

    color: Theme.t1
    font.family: Theme.textFamily
    font.pixelSize: Theme.dtxt(size)
    renderType: Theme.textRendering
    textFormat: Text.PlainText
    elide: Text.ElideRight
}
