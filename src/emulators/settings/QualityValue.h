#pragma once

#include "base/Host.h"
#include "library/QualityPreset.h"

#include <QString>

/// What a preset means in one emulator: a multiple of the console's own resolution; percent for rpcs3, lines for
/// flycast. 1 for emulators that offer no choice.
int qualityValue(const QString &emulatorID, QualityPreset preset, Host host);

/// The preset of games that have none of their own, from the preference `defaultQuality`.
QualityPreset defaultQuality(const QString &preference);
