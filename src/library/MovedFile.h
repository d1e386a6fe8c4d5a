#pragma once

#include "base/Message.h"
#include "platform/Places.h"

#include <QString>
#include <QStringList>
#include <optional>

class FileIndex;

/// What to look for when a game's file has gone.
struct MovedFile {
    QString name; ///< of the file; for a game that is a folder with a fixed file inside, of that folder
    QString rest; ///< from the folder to the file, with a slash in front; else empty
    bool operator==(const MovedFile &) const = default;
};
MovedFile movedFile(const QString &path);

/// Where else than in the index a moved file may lie: the home, the scanned folders, on Linux mounted media.
QStringList searchedFolders(const Places &places, const QStringList &romFolders);

/// Whether a hit is a leftover in a trash or cache folder, which is never the game.
bool isLeftover(const QString &path, Host host);

/// The existing places of the file that are no leftovers, the best one first. Blocks: call it in the background.
QStringList placesOf(const MovedFile &file, const FileIndex &index, const QStringList &folders, Host host);

/// The text of a Spotlight query for an exact file name.
QString spotlightQuery(const QString &fileName);

/// The name that stands for a file while it lies in iCloud only: "/a/.Game.iso.icloud" for "/a/Game.iso".
QString iCloudPlaceholder(const QString &path);
/// The other way round; nothing for any other name.
std::optional<QString> iCloudFile(const QString &placeholder);

/// What the user reads when a game's file was searched for in vain.
Message missingFileMessage(const QString &title);
