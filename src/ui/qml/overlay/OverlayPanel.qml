import QtQuick
import Velko

/// The menu over the game: the game's picture, darkened to the left, where title and rows stand.
FocusScope {
    id: root
    required property OverlayFacts facts
    required property InputMode input
    readonly property int margin: Theme.px(Theme.u > 0.75 ? 96 : 64)
    readonly property bool low: root.height < Theme.px(1000) ///< all rows of the menu fit only closer to the title
    readonly property int rowsTop: Theme.px(low ? 140 : 208)

    focus: true
    Accessible.role: Accessible.Pane
    Accessible.name: root.facts.title
    Keys.onPressed: event => event.accepted = root.facts.pressKey(event.key)

    Binding { target: Theme; property: "viewWidth"; value: root.facts.display.width }
    Binding { target: Theme; property: "viewHeight"; value: root.facts.display.height }
    Binding { target: Theme; property: "inputMode"; value: root.input.name }
    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }
    Glow {
        visible: picture.source == ""
        x: -root.width * 0.2
        y: -root.height * 0.3
        width: root.width * 0.9
        height: root.height * 1.2
        strength: 0.17
    }
    Image {
        id: picture
        anchors.fill: parent
        source: root.facts.picture
        cache: false
        fillMode: Image.PreserveAspectFit
    }
    Rectangle {
        anchors.fill: parent
        color: "#5706070A"
    }
    Rectangle {
        width: parent.width * 0.72
        height: parent.height
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: "#F70A0C12" }
            GradientStop { position: 0.34 / 0.72; color: "#F20A0C12" }
            GradientStop { position: 0.5 / 0.72; color: "#9E0A0C12" }
            GradientStop { position: 1; color: "#000A0C12" }
        }
    }
    Item {
        id: column
        property real slide: root.facts.open ? 0 : -Theme.px(40)
        x: slide
        width: Theme.px(root.facts.page === "controller" ? 900 : 756) + root.margin - Theme.px(56)
        height: parent.height
        opacity: 1 + slide / Theme.px(40)
        OverlayTitle {
            x: root.margin
            y: Theme.px(root.low ? 20 : 56)
            coverHeight: Theme.px(root.low ? 100 : 112)
            width: root.width - 2 * root.margin
            facts: root.facts
        }
        Loader {
            x: root.margin - Theme.px(28)
            y: root.rowsTop
            width: Theme.px(root.facts.page === "controller" ? 900 : 700)
            height: root.height - y - hints.height
            opacity: root.facts.quitting ? 0.4 : 1
            sourceComponent: root.facts.page === "controller" ? steps : rows
        }
        Behavior on slide {
            NumberAnimation {
                duration: root.facts.open ? Theme.focus : Theme.fast
                easing.type: Easing.OutCubic
            }
        }
    }
    Component {
        id: rows
        OverlayList { facts: root.facts }
    }
    Component {
        id: steps
        ControllerSteps { facts: root.facts }
    }
    FarHints {
        id: hints
        x: root.margin
        y: root.height - height - Theme.px(8)
        visible: !root.facts.quitting
        hints: root.facts.page === "settings" ? [
            { glyphs: ["dpad-v"], text: Tr.translate("Move with the D-pad") },
            ...(root.facts.selectedChanges ? [{ glyphs: ["dpad-h"], text: Tr.translate("Change") }]
                : root.facts.selectedActs ? [{ glyphs: ["a"], text: Tr.translate("Choose") }] : []),
            { glyphs: ["b"], text: Tr.translate("Back") }
        ] : root.facts.page === "info" ? [
            { glyphs: ["b"], text: Tr.translate("Back") }
        ] : [
            { glyphs: ["dpad-v"], text: Tr.translate("Move with the D-pad") },
            { glyphs: ["a"], text: Tr.translate("Choose") },
            { glyphs: ["b"], text: root.facts.page === "menu" ? Tr.translate("Resume") : Tr.translate("Back") }
        ]
        onChosen: index => { if (index === hints.hints.length - 1) root.facts.goBack() }
    }
    NoticeCard {
        visible: text !== ""
        anchors.right: parent.right
        anchors.rightMargin: Theme.px(24)
        y: Theme.px(40)
        text: root.facts.toast
        icon: root.facts.toastIcon
        kind: root.facts.toastKind
    }
}
