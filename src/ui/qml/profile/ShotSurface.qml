import QtQuick
import Velko

/// What lies over the window for screenshots: the viewer, and the question before a picture is removed.
FocusScope {
    id: root
    required property ScreenshotGallery gallery

    Loader {
        anchors.fill: parent
        active: root.gallery.viewing
        focus: !root.gallery.asking
        enabled: focus
        sourceComponent: ShotViewer {
            gallery: root.gallery
            focus: true
        }
        onFocusChanged: if (focus && item) (item as Item).forceActiveFocus()
    }
    Loader {
        anchors.fill: parent
        active: root.gallery.asking
        focus: root.gallery.asking
        onLoaded: (item as Item).forceActiveFocus()
        sourceComponent: QuestionDialog {
            title: Tr.translate("Delete this screenshot?")
            text: Tr.translate("It goes to the Trash.")
            actions: [
                { name: "cancel", text: Tr.translate("Cancel"), kind: "primary" },
                { name: "delete", text: Tr.translate("Delete") }
            ]
            onAnswered: answer => root.gallery.answer(answer === "delete")
        }
    }
}
