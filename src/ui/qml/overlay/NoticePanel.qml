import QtQuick
import Velko

/// The small window over the game: one notice, as large as it needs to be. The hint about the controller can be
/// clicked.
Item {
    id: root
    required property NoticeFacts facts
    property bool blended: false ///< what lies below shows through: the window has room for the shadow
    readonly property rect card: Qt.rect(sheet.x, sheet.y, sheet.width, sheet.height)
    readonly property real radius: sheet.radius
    readonly property color ground: Theme.bg ///< of a window that is cut out
    readonly property int blur: Theme.px(40)
    readonly property int drop: Theme.px(10)

    width: sheet.x + sheet.width + (blended ? Theme.px(24) : 0)
    height: sheet.y + sheet.height + (blended ? blur + drop : 0)
    BorderImage {
        visible: root.blended
        x: sheet.x - root.blur
        y: sheet.y - root.blur + root.drop
        width: sheet.width + 2 * root.blur
        height: sheet.height + 2 * root.blur
        border.left: sheet.radius + 2 * root.blur
        border.right: sheet.radius + 2 * root.blur
        source: visible ? "image://shadow/" + sheet.radius + "/" + root.blur + "/35/" + sheet.height : ""
    }
    NoticeCard {
        id: sheet
        x: root.blended ? root.blur : 0
        y: root.blended ? root.blur - root.drop : 0
        text: root.facts.text
        detail: root.facts.detail
        icon: root.facts.icon
        kind: root.facts.kind
        glyphs: root.facts.glyphs
        detailGlyphs: root.facts.detailGlyphs
        busy: root.facts.busy
        TapHandler { onTapped: root.facts.click() }
    }
}
