#include "ui/overlay/NoticeFacts.h"

#include "app/Translator.h"
#include "play/overlay/GuideOverlay.h"
#include "ui/overlay/SymbolIcon.h"

using namespace Qt::StringLiterals;

static const QStringList chord{u"view"_s, u"menu"_s};

NoticeFacts::NoticeFacts(GuideOverlay &guide, const Translator &translator, QObject *parent)
    : QObject(parent), m_guide(guide), m_translator(translator)
{
    connect(&guide.notices(), &GuideNotices::changed, this, &NoticeFacts::update);
    connect(&guide.hint(), &GuideHint::changed, this, &NoticeFacts::update);
}

bool NoticeFacts::isVisible() const
{
    return m_guide.notices().hud() || m_guide.hint().visible();
}

bool NoticeFacts::isClickable() const
{
    return !m_guide.notices().hud() && m_guide.hint().visible();
}

void NoticeFacts::update()
{
    if (isVisible()) m_said = m_guide.notices().hud() ? notice() : hint();
    emit changed();
}

NoticeFacts::Said NoticeFacts::notice() const
{
    const GuideHUD &hud = *m_guide.notices().hud();
    return {.text = m_translator.message(m_guide.notices().text()),
            .detail = m_translator.message(hud.detail),
            .icon = symbolIcon(hud.icon),
            .kind = symbolKind(hud.icon),
            .glyphs = hud.combo == u"guide" ? chord : QStringList(),
            .busy = hud.busy};
}

NoticeFacts::Said NoticeFacts::hint() const
{
    const QString emulator = m_guide.session() ? m_guide.session()->name : QString();
    return {.text = m_translator.fill(u"Controller not responding in %@?"_s, {emulator}),
            .detail =
                m_translator.translate(u"Click here, or"_s) + u" %@ "_s + m_translator.translate(u"for the steps"_s),
            .icon = u"controller"_s,
            .kind = u"plain"_s,
            .detailGlyphs = chord};
}

void NoticeFacts::click()
{
    if (isClickable()) m_guide.toggle();
}
