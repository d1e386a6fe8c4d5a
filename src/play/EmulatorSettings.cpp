#include "play/EmulatorSettings.h"

#include "platform/Keys.h"
#include "platform/ProcessControl.h"

#include <QPointer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

std::optional<MenuEntry> settingsEntry(const QList<MenuEntry> &menu)
{
    static const QStringList titles{u"settings…"_s,    u"preferences…"_s, u"réglages…"_s,
                                    u"préférences…"_s, u"settings..."_s,  u"preferences..."_s,
                                    u"configure…"_s,   u"configure..."_s, u"config"_s};
    for (const QString &title : titles) {
        for (const MenuEntry &entry : menu) {
            if (entry.enabled && entry.pressable && entry.title.toLower().contains(title)) return entry;
        }
    }
    return {};
}

void EmulatorSettings::open(const RunningGame &game)
{
    ++m_token;
    m_wait = m_reach.clock.after(400ms, [this, pid = game.pid] { search(pid); });
}

void EmulatorSettings::search(qint64 pid)
{
    const auto usualKey = [reach = m_reach, pid] {
        if (reach.isInFront(pid)) reach.keys.press({Qt::Key_Comma, Qt::ControlModifier});
    };
    if (!m_reach.accessibility.isAvailable()) return usualKey();
    m_reach.accessibility.menu(m_reach.processes.tree(pid), {},
                               [this, alive = QPointer(this), token = m_token, usualKey](const QList<MenuEntry> &menu) {
                                   if (!alive || token != m_token) return;
                                   const auto entry = settingsEntry(menu);
                                   if (!entry) return usualKey();
                                   m_reach.accessibility.press(*entry, [](bool) {});
                               });
}
