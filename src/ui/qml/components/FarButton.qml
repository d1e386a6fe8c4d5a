import QtQuick
import Velko

/// A button on a surface that is seen from the sofa. Whoever uses it moves the mark: `lit`.
Rectangle {
    id: root
    property string text
    property bool lit: false
    signal entered
    signal chosen

    width: label.implicitWidth + Theme.px(72)
    height: Theme.px(76)
    radius: Theme.px(20)
    color: lit ? Theme.accent : Theme.fill2
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.focusable: true
    Accessible.focused: root.lit
    Accessible.onPressAction: root.chosen()
    HoverHandler { onPointChanged: if (Theme.inputMode === "pointer") root.entered() }
    TapHandler { onTapped: root.chosen() }
    FarLabel {
        id: label
        anchors.centerIn: parent
        text: root.text
        font.weight: 600
        color: root.lit ? Theme.onAccent : Theme.t1
    }
}
