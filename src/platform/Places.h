#pragma once

#include "base/Host.h"

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// The folders that everything else is found from. A plain value: tests hand in a temporary home.
struct Places {
    Host host = Host::linux;
    QString home;
    QString config; ///< $XDG_CONFIG_HOME; on the Mac "Library/Application Support" of the home
    QString data; ///< $XDG_DATA_HOME; on the Mac the same as `config`
    QString cache; ///< $XDG_CACHE_HOME; "Library/Caches"
    QString state; ///< $XDG_STATE_HOME; on the Mac "Library/Logs"
    QString runtime; ///< $XDG_RUNTIME_DIR, else a folder below the state folder
    QString pictures; ///< XDG_PICTURES_DIR; "Pictures"
    QStringList dataDirs; ///< `data`, then $XDG_DATA_DIRS, then the Flatpak exports: where desktop entries lie
    QStringList programDirs; ///< $PATH, then /usr/games and /usr/local/games, without repeats

    bool displayPresent = true; ///< whether there is a desktop to open windows on
    bool waylandSession = false;

    QStringList applicationDirs; ///< of all users, for programs that come in one piece: /opt; /Applications
    QStringList libraryDirs; ///< where the system's packages put shared libraries, without repeats

    QString dataFolder() const; ///< "VelkoEmu" in `data`: ours alone
    QString libraryFile() const; ///< "library.json" in the data folder
    QString preferencesFile() const;
    QString legacyPreferencesFile() const; ///< preferences of the earlier identity, read once
    QString logFolder() const;
    QString logFile() const;
    QString placementLogFile() const; ///< what was done to the windows of games
};

/// An XDG variable that is empty or not an absolute path counts as unset, as the base directory rules ask.
Places linuxPlaces(const QString &home, const QProcessEnvironment &environment);
Places macPlaces(const QString &home);
