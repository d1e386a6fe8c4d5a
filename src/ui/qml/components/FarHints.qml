import QtQuick
import Velko

/// What the buttons do right now, on a surface that is seen from the sofa. Pressing a hint with the pointer does it.
Row {
    id: root
    property var hints: [] ///< a list of { glyphs: [name], text }, at most five
    signal chosen(int index)

    height: Theme.px(84)
    spacing: Theme.px(44)
    Repeater {
        model: root.hints
        Row {
            id: hint
            required property var modelData
            required property int index
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.px(14)
            Accessible.role: Accessible.Button
            Accessible.name: modelData.text
            Accessible.onPressAction: root.chosen(hint.index)
            TapHandler { onTapped: root.chosen(hint.index) }
            Repeater {
                model: hint.modelData.glyphs
                Glyph {
                    required property string modelData
                    anchors.verticalCenter: parent.verticalCenter
                    name: modelData
                    size: Theme.px(36)
                }
            }
            FarLabel {
                anchors.verticalCenter: parent.verticalCenter
                text: hint.modelData.text
                color: Theme.t2
            }
        }
    }
}
