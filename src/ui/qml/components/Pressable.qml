import QtQuick
import Velko

/// What every control has in common: focus, hover, press, the keys that mean "do it" and its name for screen readers.
/// Draws nothing.
Item {
    id: root
    property string name ///< spoken by screen readers
    property string hint ///< spoken after the name
    property bool available: true ///< false: shown as off, still reachable, does nothing
    property bool tappable: true ///< false: only keys press it, because parts of it are pressed by themselves
    property int role: Accessible.Button
    readonly property bool hovered: hover.hovered && Theme.inputMode === "pointer"
    readonly property bool pressed: tap.pressed
    readonly property bool lit: activeFocus && Theme.inputMode !== "pointer" ///< shows the focus mark
    signal activated

    activeFocusOnTab: true
    Accessible.role: root.role
    Accessible.name: root.name
    Accessible.description: root.hint
    Accessible.focusable: true
    Accessible.onPressAction: root.press()
    Keys.onReturnPressed: event => root.pressKey(event)
    Keys.onEnterPressed: event => root.pressKey(event)
    Keys.onSpacePressed: event => root.pressKey(event)

    function press() { if (root.available) root.activated() }
    function pressKey(event) { if (!event.isAutoRepeat) root.press() }

    HoverHandler {
        id: hover
        cursorShape: root.available ? Qt.PointingHandCursor : Qt.ArrowCursor
    }
    TapHandler {
        id: tap
        enabled: root.tappable
        onTapped: {
            root.forceActiveFocus(Qt.MouseFocusReason)
            root.press()
        }
    }
}
