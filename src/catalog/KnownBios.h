#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// A system file whose content is known by its MD5. Where a console is listed, any other content is not known; that
/// may still be a rare good one.
struct KnownBios {
    QString consoleID;
    QByteArray md5; ///< hexadecimal, lower case
    QString name; ///< the file name under which emulators look for it
    QString title; ///< what it is, with its region: "SCPH-5501 (America)"; not translated
    bool badDump = false; ///< damaged when it was read from the console
    bool operator==(const KnownBios &) const = default;
};

const QList<KnownBios> &knownBiosFiles();

/// Nothing for an unknown content; lives as long as the program.
const KnownBios *knownBios(const QByteArray &md5);
