#pragma once

#include "catalog/Console.h"
#include "catalog/EmulatorDef.h"
#include "emulators/InstalledEmulator.h"
#include "platform/Places.h"

#include <QHash>
#include <optional>

class FileIndex;
class Preferences;

/// What the user decided about emulators, read from the preferences on the main thread and handed to the background.
struct EmulatorChoices {
    QHash<QString, QString> emulatorByConsole; ///< `emulator.` + console identifier
    QHash<QString, QString> pathByEmulator; ///< `emulatorPath.` + emulator identifier
};
EmulatorChoices emulatorChoices(const Preferences &preferences, Host host);

/// Finds installed emulators: the remembered path, the system's registry, the usual folders and PATH, then the file
/// index. Nothing is remembered between two searches. Every search may block: call it in the background.
class EmulatorFinder {
public:
    EmulatorFinder(const Places &places, const Workspace &workspace, const FileIndex &index);

    std::optional<InstalledEmulator> find(const EmulatorDef &def, const EmulatorChoices &choices) const;
    QList<InstalledEmulator> copies(const EmulatorDef &def,
                                    const EmulatorChoices &choices) const; ///< all, the one that `find` gives first
    std::optional<InstalledEmulator> forConsole(const Console &console, const EmulatorChoices &choices) const;

private:
    Places m_places;
    const Workspace &m_workspace;
    const FileIndex &m_index;
};
