import QtQuick
import Velko

/// The screenshots, a shelf for each game.
FocusScope {
    id: root
    required property ScreenshotGallery gallery

    implicitHeight: all.height
    Column {
        id: all
        width: parent.width
        spacing: 28
        Item {
            width: parent.width
            height: 44
            Heading {
                anchors.verticalCenter: parent.verticalCenter
                text: Tr.translate("Screenshots")
                size: 26
            }
            TextButton {
                anchors.right: parent.right
                size: 44
                textSize: 14.5
                kind: "ghost"
                icon: "folder"
                text: Tr.translate("Open the folder")
                focus: root.gallery.count === 0
                onActivated: root.gallery.openFolder()
            }
        }
        Loader {
            width: parent.width
            active: root.gallery.loaded && root.gallery.count === 0
            visible: active
            sourceComponent: EmptyState {
                icon: "camera"
                title: Tr.translate("No screenshots yet")
                text: Tr.translate("Press Share on your controller during a game, or choose Screenshot in Velko's menu over the game.")
            }
        }
        Repeater {
            model: root.gallery.groups
            ShotShelf {
                id: shelf
                width: all.width
                focus: shelf.index === 0
                onOpened: row => root.gallery.view(shelf.groupID, row)
                onRemovalWanted: url => root.gallery.ask(url)
            }
        }
    }
}
