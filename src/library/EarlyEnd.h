#pragma once

#include "base/Message.h"
#include "platform/Workspace.h"

/// A session shorter than this, in seconds, is a game that did not start properly.
inline constexpr double earlyEndSeconds = 3;

/// The last lines that a program printed, fit to be shown: at most five lines and 600 characters, no control
/// characters. Empty when the file is missing or says nothing. Blocks: call it in the background.
QString lastWords(const QString &logFile);

Message closedAtOnceMessage(const QString &title, const ProgramEnd &end, const QString &lastWords);
