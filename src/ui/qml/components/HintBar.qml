import QtQuick
import Velko

/// What the controller's buttons do right now.
Item {
    id: root
    property var hints: [] ///< a list of { glyphs: [name], text }, at most five

    implicitHeight: 56
    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }
    Rectangle {
        width: parent.width
        height: 36
        y: -36
        gradient: Gradient {
            GradientStop { position: 0; color: Qt.alpha(Theme.bg, 0) }
            GradientStop { position: 1; color: Theme.bg }
        }
    }
    Row {
        x: 40
        height: parent.height
        spacing: 30
        Repeater {
            model: root.hints
            Row {
                id: hint
                required property var modelData
                anchors.verticalCenter: parent.verticalCenter
                spacing: 10
                Repeater {
                    model: hint.modelData.glyphs
                    Glyph {
                        required property string modelData
                        anchors.verticalCenter: parent.verticalCenter
                        name: modelData
                    }
                }
                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: hint.modelData.text
                    font.weight: 500
                    color: Theme.t2
                }
            }
        }
    }
}
