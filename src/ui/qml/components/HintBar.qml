import QtQuick
import Velko

/// What the controller's buttons do right now.
Item {
    id: root
    property var hints: [] ///< a list of { glyphs: [name], text }, at most five
    readonly property bool narrow: width < 900 ///< the D-pad goes without its text

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
        x: root.narrow ? 24 : 40
        height: parent.height
        spacing: root.narrow ? 18 : 30
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
                    visible: !root.narrow || hint.modelData.glyphs[0] !== "dpad"
                    anchors.verticalCenter: parent.verticalCenter
                    text: hint.modelData.text
                    font.weight: 500
                    color: Theme.t2
                }
            }
        }
    }
}
