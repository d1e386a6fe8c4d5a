#pragma once

#include <QDateTime>
#include <QList>
#include <QSize>
#include <QString>

/// One picture of a game. Its file's name tells the game and the moment: "Lanterns of Oro 2026-11-09 21.05.09.png".
struct Screenshot {
    QString url; ///< the file, absolute
    QString title; ///< of the game, as its file has it
    QDateTime date;
    int number = 1; ///< among those of the same second
    QSize size; ///< in pixels
    bool operator==(const Screenshot &) const = default;
};

/// "Velko" in the user's pictures.
QString screenshotFolder(const QString &pictures);

/// Makes the folder, which under the earlier identity was called "VelkoEmu". A failure shows when a file is written.
void prepareScreenshotFolder(const QString &pictures);

/// A game's title as a file's name can hold it.
QString fileTitle(const QString &title);

/// The name of a new file, "… 2.png" when the folder has one of that second already. Looks at the folder.
QString screenshotPath(const QString &folder, const QString &title, const QDateTime &moment);

/// Title, date and number of a file. Without a date in its name a file has that of its last change.
Screenshot parsedScreenshot(const QString &file, const QDateTime &changed);

/// The pictures in the folder, the newest first. Left out is what Velko cannot have written: links, folders, other
/// kinds of files whatever their name, pictures larger than any screen. Reads a few bytes of each file: call it in the
/// background.
QList<Screenshot> listScreenshots(const QString &folder);

/// The picture in this file when it is one of those; nothing else. Reads a few bytes.
QList<Screenshot> listedScreenshot(const QString &file);

bool isNewer(const Screenshot &one, const Screenshot &other);
