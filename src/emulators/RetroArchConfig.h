#pragma once

#include "library/GameSettings.h"

#include <QByteArray>
#include <QString>

/// Our settings for one run of RetroArch, appended to the user's own, which they never change.
QByteArray retroArchConfig(const GameSettings &settings);

/// The slot whose state RetroArch loads at its start: the number at the end of the state's name ("game.state3"). The
/// command line knows no slot 0, so a state without a number counts as slot 1.
int retroArchEntrySlot(const QString &statePath);
