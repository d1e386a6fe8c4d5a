#pragma once

#include "base/Host.h"
#include "base/Message.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>

/// What a look at the machine and the library found, for `examine` to judge.
struct DoctorFacts {
    Host host = Host::linux;
    QString dataFolder;
    bool dataFolderWritable = false;
    qsizetype games = 0;
    QString unreadableLibrary; ///< where it was set aside; empty: the library is readable
    bool displayPresent = false;
    bool fileIndexPresent = false;
    QStringList missingFolders; ///< scanned folders that are not there
    QHash<QString, QString> installed; ///< emulator identifier → where
    QHash<QString, int> gamesByConsole; ///< console identifier → games
    QHash<QString, QString> playable; ///< console identifier → emulator identifier that will be used
};

/// One line of `velko doctor`.
struct Finding {
    enum class Grade { fine, advice, problem };
    Grade grade = Grade::fine;
    Message message;
    QString remedy; ///< English, ready to show; empty when nothing needs doing
    bool operator==(const Finding &) const = default;
};

QList<Finding> examine(const DoctorFacts &facts);
