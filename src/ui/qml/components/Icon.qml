import QtQuick
import Velko

/// A line drawing of icons/, by its file name.
Image {
    id: root
    property string name
    property real size: 20
    property color color: Theme.t1

    width: size
    height: size
    sourceSize.width: size * Screen.devicePixelRatio
    sourceSize.height: size * Screen.devicePixelRatio
    source: name === "" ? "" : "image://icon/" + name + "/" + String(color).substring(1)
}
