#pragma once

#include "emulators/finding/InstalledEmulator.h"
#include "platform/Places.h"

#include <QDateTime>
#include <QList>
#include <optional>

/// Where states of an emulator appear.
struct StatePlace {
    QString folder;
    int levels = 0; ///< of folders below it that are looked into
    QString names; ///< of whole file names, as a regular expression
    bool operator==(const StatePlace &) const = default;
};

/// A state as it lies on the disk.
struct StateFile {
    QString path;
    qint64 size = 0;
    QDateTime changed;
    QDateTime replaced; ///< also when another file took its place
    bool operator==(const StateFile &) const = default;
};

/// The places of this emulator for this game, going by the settings of each copy: which of them runs does not matter,
/// since only one of them saves. xemu keeps states in the disk of its machine, whose file then counts as the state.
/// Empty for an emulator whose states Velko does not reach. Reads files: call it in the background.
QList<StatePlace> statePlaces(const QString &engine, const QString &gamePath, const QList<InstalledEmulator> &copies,
                              const Places &places);

/// All states that are there now, 20,000 files looked at at most. Reads folders: call it in the background.
QList<StateFile> stateFiles(const QList<StatePlace> &places);

/// The state that is new or another one since; nothing while it is empty.
std::optional<StateFile> changedState(const QList<StateFile> &before, const QList<StateFile> &now);

/// Those of them that can be of this game. Emulators that name states by a number of the game keep them all.
QList<StateFile> statesOf(const QList<StateFile> &files, const QString &engine, const QString &gamePath);
