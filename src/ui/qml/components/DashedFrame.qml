import QtQuick
import Velko

/// The dashed outline of an empty place or a drop area. Takes the size it is given.
Image {
    property real radius: 12
    property color color: Theme.line2

    source: width < 4 || height < 4 ? ""
        : "image://frame/" + Math.round(width) + "x" + Math.round(height) + "/" + radius + "/" + String(color).substring(1)
}
