#pragma once

#include "library/GameEntry.h"

/// The first segment of the game's picture below "image://cover/": its identifier and what the picture is made of, so
/// that a renamed game gets a new picture although addresses are cached.
QString coverSource(const GameEntry &game);
/// The game's identifier again; works for a bare identifier as well.
QString gameIDOfCover(const QString &source);
