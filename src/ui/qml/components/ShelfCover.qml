import QtQuick
import Velko

/// One place of a shelf: the cover on the line, title and console below.
Item {
    id: root
    required property int index
    required property string gameID
    required property string title
    required property string cover
    required property string consoleID
    required property string consoleName
    required property real ratio ///< height by width
    required property bool favorite
    required property bool playing
    property real coverWidth: 192
    property real shelfHeight: 256
    property bool lit: false
    signal activated

    width: coverWidth
    height: shelfHeight + 66
    z: lit ? 1 : 0
    Accessible.role: Accessible.ListItem
    Accessible.name: title + ", " + consoleName
    Accessible.onPressAction: root.activated()

    Item {
        y: root.shelfHeight - height
        width: root.coverWidth
        height: Math.round(root.coverWidth * root.ratio)
        scale: root.lit && Theme.effects ? 1.06 : 1
        transformOrigin: Item.Bottom
        Behavior on scale { NumberAnimation { duration: Theme.focus; easing.type: Easing.OutCubic } }
        Cover {
            anchors.fill: parent
            cover: root.cover
            consoleID: root.consoleID
            favorite: root.favorite
            playing: root.playing
        }
        FocusRing {
            visible: root.lit
            radiusInside: 8
        }
    }
    Label {
        y: root.shelfHeight + 18
        width: parent.width
        text: root.title
        font.weight: 600
    }
    Label {
        y: root.shelfHeight + 40
        width: parent.width
        text: root.consoleName
        size: 13.5
        color: Theme.t3
    }
    HoverHandler { cursorShape: Qt.PointingHandCursor }
    TapHandler { onTapped: root.activated() }
}
