import QtQuick
import Velko

/// A controller button's drawing, by its file name in glyphs/. Shoulder buttons are wider than high.
Image {
    id: root
    property string name
    property real size: 25
    property color color: Theme.t1

    width: implicitHeight > 0 ? size * implicitWidth / implicitHeight : size
    height: size
    sourceSize.height: size * Screen.devicePixelRatio
    source: "image://icon/glyphs." + name + "/" + String(color).substring(1)
}
