#pragma once

#include <QList>
#include <QString>

/// Makes this program the parent of every orphan below it, so that a program that outlives its starter is still found.
void adoptOrphans();

/// All programs below `pid`, the nearest first. Those that have ended and wait to be noticed are left out.
QList<qint64> descendants(qint64 pid);

/// The command line, for messages and for telling programs apart; empty when it has ended.
QString commandLine(qint64 pid);

/// Whether the program is there and has not ended.
bool isRunning(qint64 pid);

/// Whether the program was stopped and waits to go on.
bool isStopped(qint64 pid);

/// Ends it and everything below it at once, and waits until they are gone. 0: none.
void killTree(qint64 pid);
