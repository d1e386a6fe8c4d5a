#pragma once

#include "library/GameSettings.h"

#include <QByteArray>
#include <QString>

/// Our settings for one run of RetroArch, appended to the user's own, which they never change. It takes commands at
/// that port.
QByteArray retroArchConfig(const GameSettings &settings, quint16 port);

/// The slot of a state, which is the number at the end of its name ("game.state3"). The command line can name no slot
/// 0, so a state without a number counts as slot 1.
int retroArchEntrySlot(const QString &statePath);

/// The file from which RetroArch resumes when that slot is named at its start: not the state itself but one beside it,
/// "game.state3.entry".
QString retroArchEntryState(const QString &statePath);
