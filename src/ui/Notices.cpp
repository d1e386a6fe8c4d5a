#include "ui/Notices.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

void Notices::show(const QString &text, const QString &kind)
{
    m_text = text;
    m_kind = kind;
    m_icon = kind == u"ok" ? u"check"_s : kind == u"warn" ? u"warning"_s : u"info"_s;
    m_end = text.isEmpty() ? Timer() : m_clock.after(text.size() > 50 ? 6s : 3s, [this] { show({}, {}); });
    emit changed();
}
