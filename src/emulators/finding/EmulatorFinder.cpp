#include "emulators/finding/EmulatorFinder.h"

#include "emulators/finding/CoreFinder.h"
#include "emulators/finding/EmulatorSearch.h"
#include "platform/Preferences.h"

using namespace Qt::StringLiterals;

EmulatorChoices emulatorChoices(const Preferences &preferences, Host host)
{
    EmulatorChoices choices;
    for (const Console &console : consoles(host)) {
        const QString chosen = preferences.get(preference::emulator(console.id));
        if (!chosen.isEmpty()) choices.emulatorByConsole.insert(console.id, chosen);
    }
    for (const EmulatorDef &def : emulatorDefs(host)) {
        const QString path = preferences.get(preference::emulatorPath(def.id));
        if (!path.isEmpty()) choices.pathByEmulator.insert(def.id, path);
    }
    choices.velkoFolder = preferences.get(preference::velkoFolder);
    return choices;
}

static std::optional<ReadyEmulator> readyCopy(const QString &consoleID, const QList<InstalledEmulator> &copies,
                                              const Places &places)
{
    for (const InstalledEmulator &copy : copies) {
        if (copy.emulatorID != "retroarch"_L1) return ReadyEmulator{copy, {}};
        if (const auto core = findCore(consoleID, coreFolders(copy, places))) return ReadyEmulator{copy, *core};
    }
    return {};
}

std::optional<ReadyEmulator>
chooseEmulator(const Console &console, const EmulatorChoices &choices, const Places &places,
               const std::function<QList<InstalledEmulator>(const EmulatorDef &)> &copiesOf)
{
    if (console.emulators.isEmpty()) return {};
    QStringList ids = QStringList{choices.emulatorByConsole.value(console.id)} + console.emulators;
    ids.removeDuplicates();
    for (const QString &id : ids) {
        const EmulatorDef *def = emulatorWithID(id, places.host);
        if (!def) continue;
        if (const auto ready = readyCopy(console.id, copiesOf(*def), places)) return ready;
    }
    return {};
}

EmulatorFinder::EmulatorFinder(const Places &places, const Workspace &workspace, const FileIndex &index)
    : m_places(places), m_workspace(workspace), m_index(index)
{ }

std::optional<InstalledEmulator> EmulatorFinder::find(const EmulatorDef &def, const EmulatorChoices &choices) const
{
    return EmulatorSearch(m_places, m_workspace, m_index, choices).first(def);
}

QList<InstalledEmulator> EmulatorFinder::copies(const EmulatorDef &def, const EmulatorChoices &choices) const
{
    return EmulatorSearch(m_places, m_workspace, m_index, choices).all(def);
}

QHash<QString, QList<InstalledEmulator>> EmulatorFinder::allCopies(const EmulatorChoices &choices) const
{
    EmulatorSearch search(m_places, m_workspace, m_index, choices);
    QHash<QString, QList<InstalledEmulator>> found;
    for (const EmulatorDef &def : emulatorDefs(m_places.host)) {
        const QList<InstalledEmulator> copies = search.all(def);
        if (!copies.isEmpty()) found.insert(def.id, copies);
    }
    return found;
}

std::optional<InstalledEmulator> EmulatorFinder::forConsole(const Console &console,
                                                            const EmulatorChoices &choices) const
{
    const auto ready = readyFor(console, choices);
    return ready ? std::optional(ready->emulator) : std::nullopt;
}

std::optional<ReadyEmulator> EmulatorFinder::readyFor(const Console &console, const EmulatorChoices &choices) const
{
    EmulatorSearch search(m_places, m_workspace, m_index, choices);
    return chooseEmulator(console, choices, m_places, [&search](const EmulatorDef &def) {
        // Another copy of RetroArch may have the core that the first one lacks; else the first copy is the answer.
        if (def.id == "retroarch"_L1) return search.all(def);
        const auto copy = search.first(def);
        return copy ? QList{*copy} : QList<InstalledEmulator>();
    });
}
