import QtQuick
import Velko

/// The small window over the game: one notice, as large as it needs to be. The hint about the controller can be
/// clicked.
Item {
    id: root
    required property NoticeFacts facts

    width: card.width
    height: card.height
    NoticeCard {
        id: card
        text: root.facts.text
        detail: root.facts.detail
        icon: root.facts.icon
        kind: root.facts.kind
        glyphs: root.facts.glyphs
        detailGlyphs: root.facts.detailGlyphs
        busy: root.facts.busy
    }
    TapHandler { onTapped: root.facts.click() }
}
