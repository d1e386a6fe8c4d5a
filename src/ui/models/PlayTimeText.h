#pragma once

#include "base/Message.h"

/// "14 h 05 min", "22 min"; "Never played" for nothing. A started first minute counts as one.
Message playTimeText(double seconds);
