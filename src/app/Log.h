#pragma once

#include <QString>

/// From now on everything that is logged goes to this file as well as to standard error: time, two spaces, message. A
/// file of more than 1 MiB starts anew, keeping one older file with ".1" at its end. A file that can't be written is
/// done without. Call it once.
void logTo(const QString &file);
