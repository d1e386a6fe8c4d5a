import QtQuick
import Velko

/// The time spent playing and the pictures that were taken.
ScrollPage {
    id: root
    required property AppState app
    required property ProfileFacts profile
    required property ScreenshotGallery gallery
    readonly property bool wide: Theme.contentWidth >= 1040
    readonly property real half: wide ? (Theme.contentWidth - 32) / 2 : Theme.contentWidth

    contentHeight: all.height + 64

    Column {
        id: all
        x: Theme.contentX
        y: 24
        width: Theme.contentWidth
        spacing: 32

        Flow {
            width: parent.width
            spacing: 32
            PlayTimeCard {
                width: root.half
                height: 432
                profile: root.profile
            }
            MostPlayedCard {
                width: root.half
                height: 432
                games: root.profile.mostPlayed
                onOpened: gameID => root.app.detailGame = gameID
            }
        }
        ShotShelves {
            width: parent.width
            gallery: root.gallery
            focus: true
        }
    }
}
