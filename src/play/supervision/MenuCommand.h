#pragma once

#include "platform/Accessibility.h"

#include <optional>

/// The entry to press for a command whose names are given in lower case, the best first. An entry is named by its own
/// title or, when no title fits, by the menu that it is in: then its slot 1 is taken. What is switched off, only opens
/// a menu, asks for a file or takes a step back is passed over. Nothing when no entry is left.
std::optional<MenuEntry> findMenuCommand(const QList<MenuEntry> &entries, const QStringList &titles);
