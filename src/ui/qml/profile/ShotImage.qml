import QtQuick
import Velko

/// A screenshot that fills its place, or a quiet ground while there is no picture.
Item {
    id: root
    property string shot ///< the role `source` of a model
    property real radius: 12
    readonly property real dpr: Screen.devicePixelRatio

    Rectangle {
        anchors.fill: parent
        visible: picture.status !== Image.Ready
        radius: root.radius
        color: Theme.fill1
        Icon {
            anchors.centerIn: parent
            visible: picture.status === Image.Error
            name: "image"
            size: 34
            color: Theme.t3
        }
    }
    Image {
        id: picture
        anchors.fill: parent
        asynchronous: true
        source: root.shot === "" || root.width < 1 ? "" : "image://shot/" + root.shot + "/" + Math.ceil(root.width * root.dpr)
            + "x" + Math.ceil(root.height * root.dpr) + "/" + Math.round(root.radius * root.dpr)
    }
}
