#pragma once

#include "base/Result.h"
#include "library/GameEntry.h"

/// The game that a word on the command line means: an identifier, else a title, else a title without regard to case,
/// accents and signs, else the only title that contains it. Answers its identifier, or a sentence that names the
/// candidates.
Result<QString> chooseGame(const QList<GameEntry> &games, const QString &word);
