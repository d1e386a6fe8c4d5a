#pragma once

#include "base/Result.h"
#include "library/GameEntry.h"
#include "platform/Places.h"

class Preferences;

/// The library's files: library.json, the good copy of each day, the portable copy in the Velko folder. Never replaces
/// a file that it could not read: such a file is set aside under a dated name before anything is written.
class LibraryDisk {
public:
    LibraryDisk(const Places &places, const Preferences &preferences);

    /// Empty when there is no file, or one that can't be read: then `setAsideFile` has a name.
    QList<GameEntry> read(const QDateTime &now);

    /// Whole or not at all: after a failure or a power cut the old file is still there. The day's first call keeps the
    /// old file as the day's copy. Failures of the portable copy are dropped; after a start without a
    /// readable library the earlier one is kept beside it, with "backup-" and the day at its end.
    Result<void> write(const QList<GameEntry> &games, const QDateTime &now);

    /// Under which name the unreadable file that `read` met is set aside by the first `write`; empty: there was none.
    QString setAsideFile() const { return m_setAside; }
    void forgetSetAside(); ///< the user is through with it; a file that was set aside stays where it is

    QString newestBackup() const; ///< the newest daily copy that decodes; empty when none does
    std::optional<QList<GameEntry>> readBackup() const; ///< its games

private:
    enum class Found { nothing, good, unreadable };

    QString inDataFolder(const QString &ending) const;
    QString freeSetAsideName(const QDateTime &now) const;
    QStringList backups() const;
    bool setAside(const QDateTime &now);
    void keepBackup(const QString &day);
    void writePortableCopy(const QList<GameEntry> &games, const QString &day);

    Places m_places;
    const Preferences &m_preferences;
    QString m_file; ///< the file itself when library.json is a symbolic link
    Found m_found = Found::nothing;
    bool m_startedUnreadable = false; ///< and the portable copy is still that of an earlier start
    QString m_setAside;
    mutable std::optional<QString> m_newestBackup;
};
