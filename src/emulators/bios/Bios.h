#pragma once

#include "catalog/Console.h"
#include "emulators/bios/BiosIdentity.h"
#include "emulators/finding/InstalledEmulator.h"
#include "emulators/settings/ChangeNotes.h"
#include "platform/Places.h"

#include <QList>

/// Whether a console's system files are at their place.
enum class BiosPresence { notNeeded, missing, unknownFile, present };

/// What the console's card shows.
struct BiosState {
    BiosPresence presence = BiosPresence::notNeeded;
    QStringList missing; ///< labels of what is still missing, where there are several (Xbox)
    QString folder; ///< where the files belong; empty for firmware that RPCS3 installs itself
    QList<Message> remarks; ///< one for each file that was found: what it is, or what is wrong with it
    bool operator==(const BiosState &) const = default;
};

/// What became of one file that was dropped on the card.
struct BiosReport {
    bool installed = false;
    Message message; ///< the result
    std::optional<Message> remark; ///< which file it is, or that it is not a known one
    QString consoleID;
    bool operator==(const BiosReport &) const = default;
};

/// Where this copy of an emulator looks for the console's files; without a copy, where one from a package would. Empty
/// for firmware that RPCS3 installs itself.
QString biosFolder(const Console &console, const std::optional<InstalledEmulator> &copy, const Places &places);

/// Looks at the disk: call it in the background.
BiosState biosState(const Console &console, const std::optional<InstalledEmulator> &copy, const Places &places);

/// Copies one file to where the console's emulator looks for it, in place of an older copy, through a temporary file.
/// xemu is told where its files are, which is noted. Not for firmware that RPCS3 installs itself. May take long: call
/// it in the background.
BiosReport installBios(const Console &console, const QString &file, const std::optional<InstalledEmulator> &copy,
                       const Places &places, ChangeNotes &notes);
