import QtQuick
import Velko

/// Gives a game another title.
Sheet {
    id: root
    required property GameFacts game

    title: Tr.translate("Rename")
    panelWidth: 640

    Column {
        width: root.body.width
        spacing: 24
        TextField {
            id: field
            width: parent.width
            height: 52
            focus: true
            name: Tr.translate("Title")
            placeholder: Tr.translate("Title")
            Component.onCompleted: {
                text = root.game.title
                selectAll()
            }
            onAccepted: save.activated()
        }
        Row {
            spacing: 12
            TextButton {
                id: save
                kind: "primary"
                size: 52
                textSize: 15.5
                text: Tr.translate("Rename")
                available: field.text.trim() !== ""
                onActivated: {
                    root.game.rename(field.text)
                    root.closed()
                }
            }
            TextButton {
                size: 52
                textSize: 15.5
                text: Tr.translate("Cancel")
                onActivated: root.closed()
            }
        }
    }
}
