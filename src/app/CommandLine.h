#pragma once

#include "base/Result.h"

#include <QStringList>

/// What a call of the program asks for.
struct Command {
    enum class Kind { openWindow, openBigPicture, add, scan, list, play, emulators, doctor, bios, help, version };
    Kind kind = Kind::openWindow;
    QStringList operands; ///< files, folders, or the game
    bool json = false;
    QString virtualPad; ///< the named pipe that drives a controller without hardware; empty: none
    bool operator==(const Command &) const = default;
};

/// `arguments` without the program's name. A failure means wrong usage.
Result<Command> parseCommandLine(const QStringList &arguments);

QString usage();
