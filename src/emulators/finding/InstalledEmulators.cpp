#include "emulators/finding/InstalledEmulators.h"

#include "emulators/launch/LaunchPreparation.h"
#include "platform/Preferences.h"
#include "platform/Tasks.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

InstalledEmulators::InstalledEmulators(const Places &places, const Workspace &workspace, const FileIndex &index,
                                       const Preferences &preferences, Tasks &tasks, QObject *parent)
    : QObject(parent), m_places(places), m_finder(places, workspace, index), m_preferences(preferences), m_tasks(tasks)
{
    connect(&preferences, &Preferences::changed, this, &InstalledEmulators::preferenceChanged);
}

QList<InstalledEmulator> InstalledEmulators::copies(const QString &emulatorID) const
{
    return m_look.copies.value(emulatorID);
}

std::optional<InstalledEmulator> InstalledEmulators::forConsole(const QString &consoleID) const
{
    const auto ready = m_look.byConsole.constFind(consoleID);
    return ready == m_look.byConsole.constEnd() ? std::nullopt : std::optional(ready->emulator);
}

std::optional<ReadyEmulator> InstalledEmulators::stillReadyFor(const QString &consoleID) const
{
    const auto ready = m_look.byConsole.constFind(consoleID);
    if (m_outOfDate || ready == m_look.byConsole.constEnd()) return {};
    const bool there =
        QFileInfo::exists(ready->emulator.path) && (ready->core.isEmpty() || QFileInfo::exists(ready->core));
    return there ? std::optional(*ready) : std::nullopt;
}

void InstalledEmulators::refresh()
{
    const int token = ++m_token;
    const auto look = [places = m_places, finder = m_finder, choices = emulatorChoices(m_preferences, m_places.host)] {
        Look look{finder.allCopies(choices), {}, isOnPath(u"mangohud"_s, places)};
        for (const Console &console : consoles(places.host)) {
            const auto ready = chooseEmulator(console, choices, places,
                                              [&look](const EmulatorDef &def) { return look.copies.value(def.id); });
            if (ready) look.byConsole.insert(console.id, *ready);
        }
        return look;
    };
    m_tasks.run(this, look, [this, token](Look look) {
        if (token != m_token) return;
        m_look = std::move(look);
        m_known = true;
        m_outOfDate = false;
        emit changed();
    });
}

void InstalledEmulators::preferenceChanged(const QString &key)
{
    const bool matters =
        key.startsWith("emulator."_L1) || key.startsWith("emulatorPath."_L1) || key == preference::velkoFolder.name;
    if (!matters) return;
    m_outOfDate = true;
    // Before the first look nothing is shown that could be out of date.
    if (m_known || m_token > 0) refresh();
}
