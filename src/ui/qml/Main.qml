import QtQuick
import Velko

/// The main window's content: the top bar, the pages below it, and what lies above them.
FocusScope {
    id: root
    required property AppState app
    required property LibraryStore library
    required property LibraryLists lists
    required property FocusKeeper keeper
    required property InputMode input
    required property PadNavigation pad
    required property ControllerInput controller
    required property HomeFacts home
    required property GameFacts openGame
    required property EmulatorFacts gameEmulator
    required property EmulatorFacts shownEmulator
    required property LibraryAlerts alerts
    required property LaunchQuestions questions
    required property BiosFacts bios
    required property Notices notices
    required property OwnPages ownPages
    required property FolderList folders
    required property PlaySettings settings
    required property ProfileFacts profile
    required property ScreenshotGallery gallery
    readonly property bool modal: overlays.busy
    readonly property int barHeight: hintBar.active ? 56 : 0

    focus: true
    Keys.onUpPressed: root.keeper.move(Qt.Key_Up)
    Keys.onDownPressed: root.keeper.move(Qt.Key_Down)
    Keys.onLeftPressed: root.keeper.move(Qt.Key_Left)
    Keys.onRightPressed: root.keeper.move(Qt.Key_Right)

    Binding { target: Theme; property: "windowWidth"; value: root.width }
    Binding { target: Theme; property: "windowHeight"; value: root.height }
    Binding { target: Theme; property: "inputMode"; value: root.input.name }
    Binding { target: Theme; property: "effects"; value: root.GraphicsInfo.api !== GraphicsInfo.Software }
    Binding { target: Theme; property: "wholeScale"; value: Screen.devicePixelRatio % 1 === 0 }
    Binding { target: root.openGame; property: "gameID"; value: root.app.detailGame }
    Binding { target: root.gameEmulator; property: "emulatorID"; value: root.openGame.options.engine }
    Binding { target: root.bios; property: "consoleID"; value: root.app.selectedConsole }
    Binding { target: root.home; property: "active"; value: root.app.tab === "home" }
    Binding { target: root.profile; property: "active"; value: root.app.tab === "profile" }
    Binding { target: root.gallery; property: "active"; value: root.app.tab === "profile" }

    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }
    Glow {
        x: -root.width * 0.16
        y: -root.height * 0.42
        width: root.width * 0.9
        height: root.height
        strength: 0.13
    }
    FileDrop {
        anchors.fill: parent
        enabled: !root.modal
        quiet: root.app.selectedConsole !== "" && root.app.tab === "consoles"
        alerts: root.alerts
        notices: root.notices

        FocusScope {
            id: surface
            anchors.fill: parent
            enabled: !root.modal
            focus: !root.modal
            Pad.tabs: Tr.translate("Previous / next tab")
            Pad.menu: Tr.translate("Menu")
            Pad.onTabPressed: by => {
                root.app.stepTab(by)
                pages.forceActiveFocus(Qt.TabFocusReason)
            }
            Pad.onMenuPressed: overlays.show("menu")
            Pages {
                id: pages
                anchors.fill: parent
                anchors.topMargin: bar.height
                anchors.bottomMargin: root.barHeight
                focus: true
                app: root.app
                library: root.library
                lists: root.lists
                keeper: root.keeper
                home: root.home
                openGame: root.openGame
                gameEmulator: root.gameEmulator
                alerts: root.alerts
                bios: root.bios
                profile: root.profile
                gallery: root.gallery
                onFilesWanted: overlays.show("files")
                onFolderWanted: overlays.show("folder")
                onEmulatorWanted: emulatorID => overlays.showEmulator(emulatorID)
                onRemovalWanted: overlays.show("remove")
                onRenameWanted: overlays.show("rename")
            }
            TopBar {
                id: bar
                width: parent.width
                app: root.app
                focusExit: pages
                controllerName: root.controller.controllerName
                onMenuWanted: overlays.show("menu")
                onBigPictureWanted: root.notices.show(Tr.translate("Big Picture is not in this version of Velko yet."), "info")
            }
            Shortcuts { app: root.app }
        }
    }
    Overlays {
        id: overlays
        anchors.fill: parent
        anchors.bottomMargin: root.barHeight
        focus: root.modal
        app: root.app
        library: root.library
        keeper: root.keeper
        openGame: root.openGame
        emulator: root.shownEmulator
        alerts: root.alerts
        questions: root.questions
        bios: root.bios
        notices: root.notices
        ownPages: root.ownPages
        folders: root.folders
        settings: root.settings
        gallery: root.gallery
    }
    Loader {
        id: hintBar
        y: root.height - height
        width: root.width
        active: Theme.inputMode === "pad"
        sourceComponent: HintBar { hints: root.pad.hints }
    }
    Loader {
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.height - height - 32 - root.barHeight
        active: root.notices.text !== ""
        sourceComponent: Notice {
            text: root.notices.text
            icon: root.notices.icon
            kind: root.notices.kind
        }
    }
}
