#include "emulators/settings/EmulatorSettings.h"

#include "base/XmlText.h"
#include "emulators/settings/QualityValue.h"

#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {
using How = ConfigEdit::How;

QString word(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

ConfigFormat formatOf(const QString &emulatorID)
{
    static const QHash<QString, ConfigFormat> formats{
        {u"azahar"_s, ConfigFormat::tightIni}, {u"xemu"_s, ConfigFormat::toml}, {u"melonds"_s, ConfigFormat::toml},
        {u"rpcs3"_s, ConfigFormat::yaml},      {u"cemu"_s, ConfigFormat::xml},
    };
    return formats.value(emulatorID, ConfigFormat::ini);
}

QList<ConfigEdit> qualityEdits(const QString &emulatorID, const QString &value, bool raised, Host host)
{
    if (emulatorID == "pcsx2"_L1) return {{{u"EmuCore/GS"_s}, u"upscale_multiplier"_s, value}};
    if (emulatorID == "duckstation"_L1) return {{{u"GPU"_s}, u"ResolutionScale"_s, value}};
    if (emulatorID == "ppsspp"_L1) return {{{u"Graphics"_s}, u"InternalResolution"_s, value}};
    if (emulatorID == "xemu"_L1) return {{{u"display"_s, u"quality"_s}, u"surface_scale"_s, value}};
    if (emulatorID == "rpcs3"_L1) return {{{u"Video"_s}, u"Resolution Scale"_s, value}};
    if (emulatorID == "azahar"_L1) {
        return {{{u"Renderer"_s}, u"resolution_factor\\default"_s, u"false"_s},
                {{u"Renderer"_s}, u"resolution_factor"_s, value}};
    }
    if (emulatorID == "flycast"_L1 && host == Host::mac) return {{{u"config"_s}, u"rend.Resolution"_s, value}};
    if (emulatorID == "melonds"_L1 && host == Host::linux) {
        QList<ConfigEdit> edits{{{u"3D"_s, u"GL"_s}, u"ScaleFactor"_s, value}};
        // The renderer without OpenGL knows the console's own resolution only.
        if (raised) edits += ConfigEdit{{u"3D"_s}, u"Renderer"_s, u"1"_s, How::atLeast};
        return edits;
    }
    return {};
}

QList<ConfigEdit> counterEdits(const QString &emulatorID)
{
    if (emulatorID == "pcsx2"_L1) return {{{u"EmuCore/GS"_s}, u"OsdShowFPS"_s, u"true"_s}};
    if (emulatorID == "duckstation"_L1) return {{{u"Display"_s}, u"ShowFPS"_s, u"true"_s}};
    if (emulatorID == "ppsspp"_L1) return {{{u"Graphics"_s}, u"iShowStatusFlags"_s, u"2"_s, How::withBits}};
    if (emulatorID == "rpcs3"_L1) return {{{u"Video"_s, u"Performance Overlay"_s}, u"Enabled"_s, u"true"_s}};
    if (emulatorID == "cemu"_L1) {
        const QStringList overlay{u"content"_s, u"Graphic"_s, u"Overlay"_s};
        return {{overlay, u"Position"_s, u"1"_s, How::atLeast}, {overlay, u"FPS"_s, u"true"_s}};
    }
    return {};
}

QList<ConfigEdit> widescreenEdits(const QString &emulatorID)
{
    if (emulatorID == "pcsx2"_L1) return {{{u"EmuCore"_s}, u"EnableWideScreenPatches"_s, u"true"_s}};
    // DuckStation widens the picture to the display's shape, which is the console's own by default.
    if (emulatorID == "duckstation"_L1)
        return {{{u"GPU"_s}, u"WidescreenHack"_s, u"true"_s}, {{u"Display"_s}, u"AspectRatio"_s, u"16:9"_s}};
    return {};
}

/// The command line can ask for full screen; a few emulators need more to stay in a window, or go by their file.
QList<ConfigEdit> fullScreenEdits(const QString &emulatorID, bool fullScreen)
{
    if (emulatorID == "rpcs3"_L1)
        return {{{u"Miscellaneous"_s}, u"Start games in fullscreen mode"_s, word(fullScreen)}};
    const How how = fullScreen ? How::putBack : How::ifThere;
    if (emulatorID == "xemu"_L1) return {{{u"display"_s, u"window"_s}, u"fullscreen_on_startup"_s, u"false"_s, how}};
    if (emulatorID == "cemu"_L1) return {{{u"content"_s}, u"fullscreen"_s, u"false"_s, how}};
    return {};
}

QList<ConfigEdit> wantedOrPutBack(QList<ConfigEdit> edits, bool wanted)
{
    if (!wanted) {
        for (ConfigEdit &edit : edits)
            edit.how = How::putBack;
    }
    return edits;
}

QList<ConfigEdit> cemuGameEdits(const QString &gamePath)
{
    return {{{u"content"_s, u"GamePaths"_s}, u"Entry"_s, xmlOfText(QFileInfo(gamePath).path()), How::listed},
            {{u"content"_s, u"Audio"_s}, u"TVDevice"_s, u"default"_s, How::ifEmpty}};
}
}

FileEdits settingsEdits(const SettingsWish &wish)
{
    const QString &id = wish.emulatorID;
    FileEdits file{settingsFile(id, wish.folders), formatOf(id), {}};
    if (id == "cemu"_L1) file.edits += cemuGameEdits(wish.gamePath);
    file.edits += qualityEdits(id, QString::number(qualityValue(id, wish.quality, wish.host)),
                               wish.quality != QualityPreset::minimum, wish.host);
    if (wish.host == Host::mac) return file;
    file.edits += wantedOrPutBack(counterEdits(id), wish.settings.showFPS);
    file.edits += wantedOrPutBack(widescreenEdits(id), wish.settings.widescreen);
    file.edits += fullScreenEdits(id, wish.settings.fullScreen.value_or(true));
    // The channel over which states are saved and loaded.
    if (id == "pcsx2"_L1) file.edits += ConfigEdit{{u"EmuCore"_s}, u"EnablePINE"_s, u"true"_s};
    return file;
}

FileEdits gameFileEdits(const SettingsWish &wish)
{
    const QString &id = wish.emulatorID;
    FileEdits file{wish.gameFile, formatOf(id), {}};
    if (wish.settings.quality)
        file.edits += qualityEdits(id, QString::number(qualityValue(id, wish.quality, wish.host)),
                                   wish.quality != QualityPreset::minimum, wish.host);
    file.edits += wantedOrPutBack(counterEdits(id), wish.settings.showFPS);
    return file;
}

/// Azahar takes a key only when its twin says that it is not at its default.
static QList<ConfigEdit> azaharKey(const QString &section, const QString &key, const QString &value)
{
    return {{{section}, key + u"\\default"_s, u"false"_s}, {{section}, key, value}};
}

QList<FileEdits> quietEdits(const QString &emulatorID, Host host, const EmulatorFolders &folders)
{
    if (host == Host::mac) return {};
    FileEdits file{settingsFile(emulatorID, folders), formatOf(emulatorID), {}};
    const QString off = u"false"_s;
    if (emulatorID == "pcsx2"_L1) {
        file.edits = {{{u"UI"_s}, u"ConfirmShutdown"_s, off},
                      {{u"UI"_s}, u"SetupWizardIncomplete"_s, off, How::ifThere},
                      {{u"AutoUpdater"_s}, u"CheckAtStartup"_s, off}};
    } else if (emulatorID == "duckstation"_L1) {
        file.edits = {{{u"Main"_s}, u"ConfirmPowerOff"_s, off},
                      {{u"Main"_s}, u"NoDesktopFile"_s, u"true"_s},
                      {{u"Main"_s}, u"SetupWizardIncomplete"_s, off, How::ifThere},
                      {{u"AutoUpdater"_s}, u"CheckAtStartup"_s, off}};
    } else if (emulatorID == "ppsspp"_L1) {
        file.edits = {{{u"General"_s}, u"FirstRun"_s, u"False"_s},
                      {{u"General"_s}, u"CheckForNewVersion"_s, u"False"_s}};
    } else if (emulatorID == "xemu"_L1) {
        file.edits = {{{u"general"_s}, u"show_welcome"_s, off}, {{u"general"_s, u"updates"_s}, u"check"_s, off}};
    } else if (emulatorID == "azahar"_L1) {
        file.edits = azaharKey(u"UI"_s, u"confirmClose"_s, off) + azaharKey(u"UI"_s, u"firstStart"_s, off)
            + azaharKey(u"Miscellaneous"_s, u"check_for_update_on_start"_s, off);
    } else if (emulatorID == "cemu"_L1) {
        file.edits = {{{u"content"_s}, u"check_update"_s, off}};
    } else if (emulatorID == "rpcs3"_L1) {
        file.file = folders.config + u"/GuiConfigs/CurrentSettings.ini"_s;
        file.format = ConfigFormat::tightIni;
        file.edits = {{{u"main_window"_s}, u"infoBoxEnabledWelcome"_s, off},
                      {{u"main_window"_s}, u"infoBoxEnabledInstallPUP"_s, off},
                      {{u"main_window"_s}, u"confirmationBoxExitGame"_s, off},
                      {{u"Meta"_s}, u"checkUpdateStart"_s, off}};
    }
    return file.edits.isEmpty() ? QList<FileEdits>() : QList{file};
}

FileEdits vblankRateEdits(const QString &file, int rate)
{
    return {file, ConfigFormat::yaml, {{{u"Video"_s}, u"Vblank Rate"_s, QString::number(rate)}}};
}

QString rpcs3GameFile(const EmulatorFolders &rpcs3, const QString &serial)
{
    return rpcs3.config + u"/custom_configs/config_"_s + serial + u".yml"_s;
}
