import QtQuick
import Velko

/// One screenshot in the whole window, with the others of its game below. Left and right change the picture, the confirm
/// key hides all but the picture, Delete asks to remove it, Escape closes.
FocusScope {
    id: root
    required property ScreenshotGallery gallery
    property bool bare: false
    readonly property real edge: Math.max(32, Math.min(96, width * 0.05))

    Accessible.role: Accessible.Dialog
    Accessible.name: gallery.title + ", " + gallery.dateText
    Pad.back: Tr.translate("Close")
    Pad.details: Tr.translate("Delete")
    Pad.onDetailsPressed: root.gallery.askForShown()
    Keys.onEscapePressed: root.gallery.close()
    Keys.onDeletePressed: root.gallery.askForShown()
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) root.bare = !root.bare }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) root.bare = !root.bare }

    Rectangle {
        anchors.fill: parent
        color: "#08090D"
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: event => root.gallery.index += event.angleDelta.y > 0 ? -1 : 1
            onClicked: root.bare = !root.bare
        }
    }
    Image {
        id: picture
        anchors.fill: parent
        asynchronous: true
        cache: false
        fillMode: Image.PreserveAspectFit
        smooth: sourceSize.width >= width
        source: root.gallery.source === "" || width < 1 ? "" : "image://shot/" + root.gallery.source + "/whole/"
            + Math.ceil(width * Screen.devicePixelRatio) + "x" + Math.ceil(height * Screen.devicePixelRatio)
    }
    Label {
        anchors.centerIn: parent
        visible: picture.status === Image.Error
        text: Tr.translate("This picture can't be shown.")
        size: 17
        color: "#B9B9C1"
    }
    Item {
        anchors.fill: parent
        opacity: root.bare ? 0 : 1
        Behavior on opacity { NumberAnimation { duration: Theme.fast } }

        Rectangle {
            width: parent.width
            height: 170
            gradient: Gradient {
                GradientStop { position: 0; color: "#E606070A" }
                GradientStop { position: 1; color: "#0006070A" }
            }
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 330
            gradient: Gradient {
                GradientStop { position: 0; color: "#0006070A" }
                GradientStop { position: 0.55; color: "#CC06070A" }
                GradientStop { position: 1; color: "#F206070A" }
            }
        }
        Heading {
            id: heading
            x: root.edge
            y: 34
            width: Math.min(implicitWidth, parent.width * 0.5)
            text: root.gallery.title
            size: 30
            color: "#F4F1EB"
        }
        Label {
            anchors.baseline: heading.baseline
            x: heading.x + heading.width + 20
            text: root.gallery.dateText
            size: 18
            color: "#B9B9C1"
        }
        Label {
            anchors.baseline: heading.baseline
            anchors.right: tools.left
            anchors.rightMargin: 24
            text: root.gallery.viewing ? (root.gallery.index + 1) + " / " + root.gallery.shots.count : ""
            size: 18
            font.weight: 600
            color: "#F4F1EB"
        }
        Row {
            id: tools
            anchors.right: parent.right
            anchors.rightMargin: root.edge - 12
            y: 30
            spacing: 8
            enabled: !root.bare
            TextButton {
                size: 44
                round: true
                kind: "strong"
                icon: "trash"
                name: Tr.translate("Delete")
                onActivated: root.gallery.askForShown()
            }
            TextButton {
                size: 44
                round: true
                kind: "strong"
                icon: "close"
                name: Tr.translate("Close")
                onActivated: root.gallery.close()
            }
        }
        ListView {
            id: strip
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 48
            x: root.edge
            width: parent.width - x
            height: 104
            focus: true
            activeFocusOnTab: true
            orientation: ListView.Horizontal
            spacing: 24
            model: root.gallery.shots
            reuseItems: true
            cacheBuffer: Math.max(0, width)
            boundsBehavior: Flickable.StopAtBounds
            highlightFollowsCurrentItem: false
            Accessible.role: Accessible.List
            Accessible.name: Tr.translate("Screenshots")
            Pad.confirm: Tr.translate("Full screen")
            Binding { target: strip; property: "currentIndex"; value: root.gallery.index }
            onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)
            Keys.onLeftPressed: root.gallery.index -= 1
            Keys.onRightPressed: root.gallery.index += 1
            delegate: Item {
                id: tile
                required property int index
                required property string source
                required property string dateText
                readonly property bool current: root.gallery.index === index
                width: 184
                height: 104
                Accessible.role: Accessible.ListItem
                Accessible.name: tile.dateText
                Accessible.onPressAction: root.gallery.index = tile.index
                ShotImage {
                    anchors.fill: parent
                    shot: tile.source
                    radius: 10
                    opacity: tile.current ? 1 : 0.72
                }
                FocusRing {
                    visible: tile.current
                    radiusInside: 10
                    gap: 3
                }
                HoverHandler { cursorShape: Qt.PointingHandCursor }
                TapHandler { onTapped: root.gallery.index = tile.index }
            }
        }
    }
}
