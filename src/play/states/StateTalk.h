#pragma once

#include "platform/LocalSockets.h"
#include "play/states/SaveStatePolicy.h"

#include <QList>

/// How an emulator's own interface is asked to save or load. Each function is a whole talk of two seconds at most: call
/// them in the background. False: nobody of that game listens, or it did not do what it was asked.

/// PCSX2, slot 1. `pids`: the game's processes; another copy of PCSX2 is not meant.
bool talkToPine(LocalSockets &sockets, const LocalAddress &address, const QList<qint64> &pids, StateCommand command);

/// RetroArch, the slot that its settings name. It answers only whether it plays, not whether it saved.
bool talkToRetroArch(LocalSockets &sockets, const LocalAddress &address, StateCommand command);

/// xemu, the snapshot of that name in the disk of the machine; letters, digits and "-" only.
bool talkToQmp(LocalSockets &sockets, const LocalAddress &address, const QList<qint64> &pids, StateCommand command,
               const QString &snapshot);
