#pragma once

#include "emulators/finding/EmulatorFinder.h"

/// One search for emulators, in the background: what it reads from the machine it reads once. The steps are in their
/// order; each gives the copies that it finds, the best one first.
class EmulatorSearch {
public:
    EmulatorSearch(const Places &places, const Workspace &workspace, const FileIndex &index,
                   const EmulatorChoices &choices);

    std::optional<InstalledEmulator> first(const EmulatorDef &def); ///< of the first step that finds one
    QList<InstalledEmulator> all(const EmulatorDef &def); ///< of all steps, each file once

private:
    QList<InstalledEmulator> remembered(const EmulatorDef &def);
    QList<InstalledEmulator> registered(const EmulatorDef &def);
    QList<InstalledEmulator> inFolders(const EmulatorDef &def);
    QList<InstalledEmulator> onPath(const EmulatorDef &def);
    QList<InstalledEmulator> indexed(const EmulatorDef &def);

    QList<InstalledEmulator> appImagesIn(const EmulatorDef &def, const QString &folder);
    QList<InstalledEmulator> programsIn(const EmulatorDef &def, const QString &folder);
    QList<InstalledEmulator> bundlesIn(const EmulatorDef &def, const QString &folder);
    QStringList usualFolders() const;
    const QList<Application> &applications();
    const QStringList &entries(const QString &folder); ///< names, sorted; empty when it cannot be listed

    const Places &m_places;
    const Workspace &m_workspace;
    const FileIndex &m_index;
    const EmulatorChoices &m_choices;
    std::optional<QList<Application>> m_applications;
    QHash<QString, QStringList> m_entries;
};
