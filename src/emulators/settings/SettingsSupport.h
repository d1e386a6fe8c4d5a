#pragma once

#include "base/Host.h"
#include "base/Message.h"
#include "library/QualityPreset.h"

#include <QString>

/// What a game's settings may offer for one emulator.
struct SettingsSupport {
    bool resolution = false; ///< a choice of quality
    bool fps = false; ///< 60 FPS, by patches
    bool widescreen = false;
    bool hud = false; ///< a frame counter
    bool fullScreen = false;
    QString emulatorName;
    QString emulatorID; ///< "nxnative" or "native" for games that are themselves programs
    QualityPreset quality = QualityPreset::medium; ///< the present one
    bool operator==(const SettingsSupport &) const = default;
};

/// An unknown emulator supports nothing but full screen and the counter.
SettingsSupport settingsSupport(const QString &emulatorID, QualityPreset quality, Host host);

/// Whether the frame counter is MangoHud's, which has to be installed, and not the emulator's own.
bool counterNeedsMangoHud(const QString &emulatorID, Host host);

/// The name that players know for a picture of so many lines: "448p", "1080p", "4K".
QString heightLabel(int lines);

/// What a preset means in this emulator: its picture's height where that is known.
Message qualityCaption(const QString &emulatorID, QualityPreset preset, Host host);

/// The same in one word, for a choice among presets; empty where the height is not known.
QString qualityLabel(const QString &emulatorID, QualityPreset preset, Host host);

/// Said in place of the choice where there is none.
QString qualityNotOffered(const QString &emulatorID);
