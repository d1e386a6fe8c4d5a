#pragma once

#include "base/Host.h"
#include "platform/Accessibility.h"
#include "platform/Keys.h"

#include <QString>
#include <optional>

/// How an emulator is best asked to end: closing its window, where it would die of the signal without saving; else the
/// signal.
bool endsByItsWindow(const QString &engine);

/// The key that takes an emulator into full screen and back; nothing when it has none.
std::optional<KeyStroke> fullScreenKey(const QString &engine, Host host);

/// Keeps its menu bar in a full screen that it hasn't gone to itself.
bool keepsItsMenuBar(const QString &engine);

/// The entry of a program's menus that takes it into full screen and back.
std::optional<MenuEntry> fullScreenEntry(const QList<MenuEntry> &menu);
