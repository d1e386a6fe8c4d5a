#pragma once

#include "platform/linux/Descriptor.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <sys/types.h>

/// A child process to start: in a session and process group of its own, with default signals, and no descriptors but
/// the first three.
struct ChildProcess {
    QByteArray program; ///< absolute
    QList<QByteArray> arguments; ///< with the program's name as the first
    QList<QByteArray> environment; ///< "NAME=value"
    QByteArray folder; ///< to work in; empty: ours
    int input = -1; ///< the child's standard streams, from 3 up; -1: /dev/null
    int output = -1;
    int errors = -1;
};

/// Starts it. 0 and its identifier once the program itself runs, else the error number of what the system refused.
int spawn(const ChildProcess &child, pid_t &pid);

/// A program of ours that stands beside this one, or in "../lib/velko" of its folder; empty when it is missing.
QString companionProgram(const QString &name);

/// Takes a descriptor over; answers the same one from 3 up: below, it would be in the way of a child's standard
/// streams.
Descriptor aboveStreams(int number);
