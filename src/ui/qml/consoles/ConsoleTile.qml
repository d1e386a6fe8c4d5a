import QtQuick
import Velko

/// One console of the catalog: its plate, its name, whether it can be played, how many games there are.
Item {
    id: root
    required property int index
    required property string consoleID
    required property string name
    required property string shortName
    required property string detail
    required property string gamesText
    required property string statusText
    required property string statusDot
    required property string spoken
    required property bool faded
    required property bool handheld
    required property int column
    required property int line
    required property int group
    signal tapped

    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.description: gamesText
    Accessible.onPressAction: root.tapped()

    Image {
        anchors.fill: parent
        asynchronous: true
        source: "image://cover/console:" + root.consoleID + (root.faded ? ":off/" : "/")
            + Math.ceil(width * Screen.devicePixelRatio) + "x" + Math.ceil(height * Screen.devicePixelRatio)
            + "x" + Math.round(200 * Screen.devicePixelRatio)
    }
    Heading {
        x: 24
        y: 18
        width: root.width - 48 - (games.text === "" ? 0 : games.width + 8)
        text: root.shortName
        size: 50
        font.weight: 700
        color: root.faded ? Qt.hsla(Theme.hue(root.consoleID), 0.26, 0.84, 0.62) : Theme.consoleLabel(root.consoleID)
    }
    Heading {
        id: games
        anchors.right: parent.right
        anchors.rightMargin: 22
        y: 22
        text: root.gamesText
        size: 19
        color: "#F4F1EB"
    }
    Label {
        x: 24
        y: root.height - 90
        width: root.width - 48
        text: root.name
        size: 16
        font.weight: 600
        color: "#F4F1EB"
    }
    Label {
        x: 24
        y: root.height - 66
        width: root.width - 48
        text: root.detail
        size: 14
        color: "#BDF4F1EB"
    }
    StatusDot {
        x: 24
        y: root.height - 33
        visible: root.statusText !== ""
        kind: root.statusDot
        color: kind === "ok" ? "#7ADBA8" : kind === "warn" ? "#F5CB5C" : kind === "info" ? "#8AC4FF" : "#8F919C" // plates are dark in both appearances
    }
    Label {
        x: 41
        y: root.height - 38
        width: root.width - x - 24
        text: root.statusText
        size: 13.5
        font.weight: 600
        color: "#F4F1EB"
    }
    Icon {
        visible: root.handheld
        x: root.width - width - 22
        y: root.height - 44
        name: "handheld"
        size: 24
        color: "#BDF4F1EB"
    }
    HoverHandler { cursorShape: Qt.PointingHandCursor }
    TapHandler { onTapped: root.tapped() }
}
