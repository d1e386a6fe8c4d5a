import QtQuick
import Velko

/// A large number and what it counts.
Column {
    id: root
    property string value
    property string text
    property real size: 30

    Heading {
        text: root.value
        size: root.size
        Accessible.role: Accessible.StaticText
        Accessible.name: root.text + ": " + root.value
    }
    Label {
        text: root.text
        size: 14.5
        color: Theme.t2
    }
}
