import QtQuick
import Velko

/// A switch as it is drawn on a surface that is seen from the sofa; the row around it acts.
Rectangle {
    id: root
    property bool checked: false
    property bool lit: false ///< it lies on the accent

    width: Theme.px(76)
    height: Theme.px(44)
    radius: height / 2
    color: root.checked ? (root.lit ? Theme.onAccent : Theme.t1) : root.lit ? "#400C0E14" : Theme.fill3
    Rectangle {
        width: Theme.px(32)
        height: width
        radius: width / 2
        y: (root.height - height) / 2
        x: root.checked ? root.width - width - y : y
        color: root.checked ? (root.lit ? Theme.accent : Theme.bg) : root.lit ? Theme.onAccent : Theme.t2
        Behavior on x { NumberAnimation { duration: Theme.fast; easing.type: Easing.OutQuad } }
    }
}
