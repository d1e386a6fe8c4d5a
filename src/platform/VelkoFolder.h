#pragma once

#include "platform/Places.h"
#include "platform/Preferences.h"

/// The folder of the user's own games and emulators: the preference `velkoFolder` whether or not it exists, else
/// `~/VelkoEmu` if that exists, else `~/Velko`. Decided anew at every call; not created.
QString velkoFolder(const Places &places, const Preferences &preferences);

/// The same in the background, where preferences cannot be read: `chosen` is what the preference said.
QString velkoFolder(const Places &places, const QString &chosen);
