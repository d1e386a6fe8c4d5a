import QtQuick
import Velko

/// A sentence and what can be done about it. The first action has the focus; Escape answers "cancel".
Sheet {
    id: root
    property string text
    property string icon
    required property var actions ///< a list of { name, text, kind }
    signal answered(string answer)

    panelWidth: 640
    closeButton: false
    onClosed: root.answered("cancel")

    Column {
        width: root.body.width
        spacing: 30
        Row {
            width: parent.width
            spacing: 20
            Icon {
                visible: root.icon !== ""
                name: root.icon
                size: 34
                color: Theme.warn
            }
            Label {
                width: parent.width - (root.icon === "" ? 0 : 54)
                text: root.text
                size: root.title === "" ? 18 : 16.5
                font.weight: root.title === "" ? 600 : 400
                color: root.title === "" ? Theme.t1 : Theme.t2
                wrapMode: Text.Wrap
                elide: Text.ElideNone
                lineHeight: 1.3
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        Flow {
            width: parent.width
            spacing: 12
            Repeater {
                model: root.actions
                TextButton {
                    required property var modelData
                    required property int index
                    focus: index === 0
                    size: 52
                    textSize: 15.5
                    text: modelData.text
                    kind: modelData.kind ?? "plain"
                    onActivated: root.answered(modelData.name)
                }
            }
        }
    }
}
