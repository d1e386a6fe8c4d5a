import QtQuick
import Velko

/// A game's picture, or the plate of its console while there is none. Give it its size; corners are round already.
Item {
    id: root
    property string cover ///< what stands behind "image://cover/": the role Cover of a model, or an identifier
    property string consoleID ///< for its colours while the picture is made
    property string consoleShort ///< shown as a badge where consoles mix; empty: no badge
    property bool favorite: false
    property bool playing: false
    property real radius: 8
    readonly property int pixelWidth: Math.ceil(width * Screen.devicePixelRatio)
    readonly property int pixelHeight: Math.ceil(height * Screen.devicePixelRatio)

    Rectangle {
        anchors.fill: parent
        visible: picture.status !== Image.Ready
        radius: root.radius
        gradient: Gradient {
            GradientStop { position: 0; color: Theme.consoleTop(root.consoleID) }
            GradientStop { position: 1; color: Theme.consoleBottom(root.consoleID) }
        }
    }
    Image {
        id: picture
        anchors.fill: parent
        asynchronous: true
        source: root.cover === "" || root.width < 1 ? ""
            : "image://cover/" + root.cover + "/" + root.pixelWidth + "x" + root.pixelHeight
              + "x" + Math.round(root.radius * Screen.devicePixelRatio * 10)
    }
    Loader {
        anchors.right: parent.right // a plate's title begins at the left
        anchors.top: parent.top
        anchors.margins: 8
        active: root.playing
        sourceComponent: Rectangle {
            width: 35
            height: 30
            radius: 15
            color: Theme.badge
            Row {
                anchors.centerIn: parent
                spacing: 3
                Repeater {
                    model: [9, 15, 6]
                    Rectangle {
                        required property int modelData
                        anchors.verticalCenter: parent.verticalCenter
                        width: 3
                        height: modelData
                        radius: 1.5
                        color: "#7ADBA8"
                    }
                }
            }
        }
    }
    Loader {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 8
        active: root.favorite
        sourceComponent: Rectangle {
            width: 30
            height: 30
            radius: 15
            color: Theme.badge
            Icon {
                anchors.centerIn: parent
                name: "heart-fill"
                size: 17
                color: "#FF8F9B"
            }
        }
    }
    Loader {
        anchors.left: parent.left
        anchors.bottom: parent.bottom
        anchors.margins: 8
        active: root.consoleShort !== ""
        sourceComponent: Rectangle {
            width: badge.implicitWidth + 16
            height: 24
            radius: 6
            color: Theme.badge
            Label {
                id: badge
                anchors.centerIn: parent
                text: root.consoleShort
                size: 12
                font.weight: 700
                color: "#F4F1EB"
            }
        }
    }
}
