#pragma once

#include "platform/Windows.h"

#include <optional>

/// The window of a running game that the user looks at: the one in full screen, else the largest, that is no question.
std::optional<AppWindow> frontWindow(const QList<AppWindow> &windows);
