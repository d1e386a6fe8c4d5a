import QtQuick
import Velko

/// One place of a grid: the cover on the shelf line, title and one more line below.
Item {
    id: root
    required property int index
    required property string gameID
    required property string title
    required property string consoleID
    required property string consoleName
    required property string coverSource
    required property string playTimeText
    required property string spoken
    required property real heightRatio
    required property bool favorite
    required property bool running
    required property bool mixed ///< games of several consoles stand side by side
    property bool lit: false
    readonly property real shelf: width * 4 / 3
    readonly property real coverHeight: width * heightRatio
    signal tapped

    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.onPressAction: root.tapped()

    Cover {
        y: root.shelf - height
        width: root.width
        height: root.coverHeight
        cover: root.coverSource
        consoleID: root.consoleID
        favorite: root.favorite
        playing: root.running
        scale: root.lit && Theme.effects ? 1.06 : 1
        transformOrigin: Item.Bottom
        Behavior on scale { NumberAnimation { duration: Theme.focus; easing.type: Easing.OutCubic } }
    }
    Label {
        y: root.shelf + 14
        width: root.width
        text: root.title
        font.weight: 600
    }
    Label {
        y: root.shelf + 35
        width: root.width
        text: root.mixed ? root.consoleName : root.playTimeText
        size: 13.5
        color: Theme.t3
    }
    HoverHandler { cursorShape: Qt.PointingHandCursor }
    TapHandler { onTapped: root.tapped() }
}
