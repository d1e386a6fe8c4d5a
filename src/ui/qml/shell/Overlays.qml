import QtQuick
import Velko

/// The one sheet or dialogue that lies above the window: what must be answered comes before what was asked for.
FocusScope {
    id: root
    required property AppState app
    required property LibraryStore library
    required property FocusKeeper keeper
    required property GameFacts openGame
    required property EmulatorFacts emulator
    required property LibraryAlerts alerts
    required property LaunchQuestions questions
    required property BiosFacts bios
    required property Notices notices
    required property OwnPages ownPages
    required property FolderList folders
    required property PlaySettings settings
    required property ScreenshotGallery gallery
    property string wanted ///< by the user: "menu", "about", "folder", "remove", "rename", "emulator", "files"; empty: none
    readonly property string shown: alerts.missingText !== "" ? "missing" : questions.controllerTitle !== "" ? "controller"
        : questions.setupText !== "" ? "setup" : alerts.errorText !== "" ? "error" : app.report ? "report" : app.settings ? "settings"
        : wanted !== "" ? wanted : gallery.viewing || gallery.asking ? "shots" : ""
    readonly property bool busy: shown !== ""

    function show(name) { root.wanted = name }
    function showEmulator(emulatorID) {
        root.emulator.emulatorID = emulatorID
        root.wanted = "emulator"
    }

    Loader {
        anchors.fill: parent
        focus: true
        active: root.busy
        sourceComponent: root.shown === "missing" ? missing : root.shown === "controller" ? controller
            : root.shown === "setup" ? setup : root.shown === "error" ? error
            : root.shown === "report" ? report : root.shown === "settings" ? settingsSheet : root.shown === "menu" ? menu : root.shown === "about" ? about
            : root.shown === "folder" ? folder : root.shown === "remove" ? remove : root.shown === "rename" ? rename
            : root.shown === "emulator" ? emulatorSheet : root.shown === "files" ? files : root.shown === "shots" ? shots : null
        onLoaded: (item as Item).forceActiveFocus()
    }
    Component {
        id: missing
        QuestionDialog {
            title: Tr.translate("The game's file is gone")
            panelWidth: 720
            text: root.alerts.missingText
            actions: [
                { name: "cancel", text: Tr.translate("Cancel"), kind: "primary" },
                { name: "remove", text: Tr.translate("Remove from library") },
                { name: "report", text: Tr.translate("Report this problem") }
            ]
            onAnswered: answer => {
                if (answer === "remove") root.alerts.removeMissing()
                else root.library.dismissMissingFile()
                if (answer === "report") root.app.report = true
            }
        }
    }
    Component {
        id: controller
        QuestionDialog {
            title: root.questions.controllerTitle
            panelWidth: 760
            text: root.questions.controllerText
            actions: [
                { name: "steps", text: Tr.translate("Show the steps"), kind: "primary" },
                { name: "play", text: Tr.translate("Play") },
                { name: "always", text: Tr.translate("Play, and don't ask again") }
            ]
            onAnswered: answer => {
                const emulator = root.questions.controllerEmulator
                if (answer === "play") root.questions.play()
                else if (answer === "always") root.questions.playAndStopAsking()
                else root.questions.dismissController()
                if (answer === "steps") root.showEmulator(emulator)
            }
        }
    }
    Component {
        id: setup
        QuestionDialog {
            icon: "warning"
            text: root.questions.setupText
            actions: [
                root.questions.setupInstalled ? { name: "setup", text: Tr.translate("Set it up"), kind: "primary" }
                    : { name: "essentials", text: Tr.translate("Essentials"), kind: "primary" },
                { name: "cancel", text: Tr.translate("Cancel") }
            ]
            onAnswered: answer => {
                const emulator = root.questions.setupEmulator
                root.questions.dismissSetup()
                if (answer === "essentials") root.app.tab = "essentials"
                if (answer === "setup") root.showEmulator(emulator)
            }
        }
    }
    Component {
        id: error
        QuestionDialog {
            icon: "warning"
            text: root.alerts.errorText
            actions: [{ name: "cancel", text: Tr.translate("Close"), kind: "primary" }]
            onAnswered: root.alerts.dismissError()
        }
    }
    Component {
        id: report
        QuestionDialog {
            title: Tr.translate("Report a problem")
            text: Tr.translate("No address for reports is set in this version of Velko, so nothing can be sent.")
            actions: [{ name: "cancel", text: Tr.translate("Close"), kind: "primary" }]
            onAnswered: root.app.report = false
        }
    }
    Component {
        id: settingsSheet
        SettingsSheet {
            settings: root.settings
            keeper: root.keeper
            onClosed: root.app.settings = false
        }
    }
    Component {
        id: menu
        MainMenu {
            app: root.app
            notices: root.notices
            ownPages: root.ownPages
            onClosed: root.wanted = ""
            onAboutWanted: root.wanted = "about"
        }
    }
    Component {
        id: about
        QuestionDialog {
            title: Tr.fill("About %@", ["Velko"])
            text: Tr.fill("Version %@. A library for your games and the emulators that play them. Free software under the GNU General Public License, version 3 or later.", [Qt.application.version])
            actions: [{ name: "cancel", text: Tr.translate("Close"), kind: "primary" }]
            onAnswered: root.wanted = ""
        }
    }
    Component {
        id: folder
        FolderPicker {
            folders: root.folders
            onClosed: root.wanted = ""
            onChosen: path => {
                root.wanted = ""
                root.library.addFolder(path)
            }
        }
    }
    Component {
        id: files
        FolderPicker {
            files: true
            what: root.bios.label
            folders: root.folders
            onClosed: root.wanted = ""
            onFilesChosen: paths => {
                root.wanted = ""
                root.bios.install(paths)
            }
        }
    }
    Component {
        id: remove
        QuestionDialog {
            title: Tr.fill("Remove “%@” from the library?", [root.openGame.title])
            text: Tr.translate("Its play time and settings are forgotten. The game's file stays where it is.")
            actions: [
                { name: "cancel", text: Tr.translate("Cancel"), kind: "primary" },
                { name: "remove", text: Tr.translate("Remove from library") }
            ]
            onAnswered: answer => {
                root.wanted = ""
                if (answer === "remove") root.openGame.remove()
            }
        }
    }
    Component {
        id: emulatorSheet
        EmulatorSheet {
            emulator: root.emulator
            keeper: root.keeper
            onClosed: root.wanted = ""
            onSystemFilesWanted: consoleID => {
                root.wanted = ""
                root.app.tab = "consoles"
                root.app.detailGame = ""
                root.app.selectedConsole = consoleID
            }
        }
    }
    Component {
        id: shots
        ShotSurface { gallery: root.gallery }
    }
    Component {
        id: rename
        RenameDialog {
            game: root.openGame
            onClosed: root.wanted = ""
        }
    }
}
