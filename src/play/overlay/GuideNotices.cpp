#include "play/overlay/GuideNotices.h"

using namespace std::chrono_literals;

Message GuideNotices::text() const
{
    return m_hud ? countedDown(*m_hud, m_clock.now()) : Message();
}

bool GuideNotices::hasCountedDown() const
{
    return m_hud && m_hud->forceAfter > 0s && secondsLeft(*m_hud, m_clock.now()) == 0;
}

int GuideNotices::show(GuideHUD hud, std::optional<std::chrono::milliseconds> time)
{
    if (hud.forceAfter > 0s && !hud.since.isValid()) hud.since = m_clock.now();
    const int token = ++m_hudToken;
    m_hud = std::move(hud);
    m_end = time ? m_clock.after(*time, [this, token] { hide(token); }) : Timer();
    m_countdown = m_hud->forceAfter > 0s ? m_clock.every(1s, [this] { emit changed(); }) : Timer();
    emit changed();
    return token;
}

int GuideNotices::show(const GuideToast &toast)
{
    constexpr int oneLine = 44; // letters that fit into one line of the widest notice
    return show({.text = toast.text, .icon = toast.symbol}, english(toast.text).size() > oneLine ? 5s : 3s);
}

void GuideNotices::hide()
{
    if (!m_hud) return;
    ++m_hudToken;
    m_hud.reset();
    m_end.reset();
    m_countdown.reset();
    emit changed();
}

void GuideNotices::hide(int hudToken)
{
    if (shows(hudToken)) hide();
}
