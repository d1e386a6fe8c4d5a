#pragma once

#include "emulators/settings/SettingsSupport.h"
#include "library/GameSettings.h"

#include <QList>

/// A row of the settings page over a game.
enum class GuideSetting {
    quality,
    fps60,
    widescreen,
    showFPS,
    fullScreen,
    controller, ///< opens the page about the controller
};

/// The rows for this emulator, from top to bottom. `guided`: there are steps for its controller.
QList<GuideSetting> guideSettings(const SettingsSupport &support, bool guided, Host host);

/// A step to the right, or to the left: the next preset without going round, a switch on or off. `by` 0 is the button
/// A: the next preset going round, the switch the other way.
GameSettings stepped(GameSettings settings, GuideSetting setting, int by, const SettingsSupport &support);
