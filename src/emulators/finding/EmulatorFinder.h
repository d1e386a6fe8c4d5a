#pragma once

#include "catalog/Console.h"
#include "catalog/EmulatorDef.h"
#include "emulators/finding/InstalledEmulator.h"
#include "platform/Places.h"

#include <QHash>
#include <functional>
#include <optional>

class FileIndex;
class Preferences;

/// What the user decided about emulators, read from the preferences on the main thread and handed to the background.
struct EmulatorChoices {
    QHash<QString, QString> emulatorByConsole; ///< `emulator.` + console identifier
    QHash<QString, QString> pathByEmulator; ///< `emulatorPath.` + emulator identifier
    QString velkoFolder; ///< the chosen location of the Velko folder; empty: none was chosen
};
EmulatorChoices emulatorChoices(const Preferences &preferences, Host host);

/// The copy that plays a console: of the emulator that the user chose, else of the first one in the console's list that
/// is installed; RetroArch counts only with a core. `copiesOf` is asked once for each emulator that comes into
/// question.
std::optional<ReadyEmulator>
chooseEmulator(const Console &console, const EmulatorChoices &choices, const Places &places,
               const std::function<QList<InstalledEmulator>(const EmulatorDef &)> &copiesOf);

/// Finds installed emulators: the remembered path, the system's registry, the usual folders and PATH, then the file
/// index. Nothing is remembered between two searches. Every search may block: call it in the background.
class EmulatorFinder {
public:
    EmulatorFinder(const Places &places, const Workspace &workspace, const FileIndex &index);

    std::optional<InstalledEmulator> find(const EmulatorDef &def, const EmulatorChoices &choices) const;
    QList<InstalledEmulator> copies(const EmulatorDef &def,
                                    const EmulatorChoices &choices) const; ///< all, the one that `find` gives first
    QHash<QString, QList<InstalledEmulator>>
    allCopies(const EmulatorChoices &choices) const; ///< of every emulator that is installed, by its identifier
    std::optional<InstalledEmulator> forConsole(const Console &console, const EmulatorChoices &choices) const;
    std::optional<ReadyEmulator> readyFor(const Console &console, const EmulatorChoices &choices) const;

private:
    Places m_places;
    const Workspace &m_workspace;
    const FileIndex &m_index;
};
