#include "ui/overlay/NoticeFacts.h"

#include "app/Translator.h"
#include "play/overlay/GuideOverlay.h"
#include "ui/overlay/SymbolIcon.h"

using namespace Qt::StringLiterals;

NoticeFacts::NoticeFacts(GuideOverlay &guide, const Translator &translator, QObject *parent)
    : QObject(parent), m_guide(guide), m_translator(translator)
{
    connect(&guide.notices(), &GuideNotices::changed, this, &NoticeFacts::changed);
    connect(&guide.hint(), &GuideHint::changed, this, &NoticeFacts::changed);
}

bool NoticeFacts::isVisible() const
{
    return m_guide.notices().hud() || m_guide.hint().visible();
}

bool NoticeFacts::isClickable() const
{
    return !m_guide.notices().hud() && m_guide.hint().visible();
}

QString NoticeFacts::text() const
{
    if (m_guide.notices().hud()) return m_translator.message(m_guide.notices().text());
    if (!isClickable() || !m_guide.session()) return {};
    return m_translator.fill(u"Controller not responding in %@?"_s, {m_guide.session()->name});
}

QString NoticeFacts::detail() const
{
    if (const auto &hud = m_guide.notices().hud()) return m_translator.message(hud->detail);
    if (!isClickable()) return {};
    return m_translator.translate(u"Click here, or"_s) + u" %@ "_s + m_translator.translate(u"for the steps"_s);
}

QString NoticeFacts::icon() const
{
    if (const auto &hud = m_guide.notices().hud()) return symbolIcon(hud->icon);
    return isClickable() ? u"controller"_s : QString();
}

QString NoticeFacts::kind() const
{
    const auto &hud = m_guide.notices().hud();
    return hud ? symbolKind(hud->icon) : u"plain"_s;
}

QStringList NoticeFacts::glyphs() const
{
    const auto &hud = m_guide.notices().hud();
    return hud && hud->combo == u"guide" ? QStringList{u"view"_s, u"menu"_s} : QStringList();
}

QStringList NoticeFacts::detailGlyphs() const
{
    return isClickable() ? QStringList{u"view"_s, u"menu"_s} : QStringList();
}

bool NoticeFacts::busy() const
{
    const auto &hud = m_guide.notices().hud();
    return hud && hud->busy;
}

void NoticeFacts::click()
{
    if (isClickable()) m_guide.toggle();
}
