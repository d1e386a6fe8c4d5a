#include "emulators/settings/SettingsSupport.h"

#include "catalog/EmulatorDef.h"
#include "emulators/launch/LaunchArguments.h"
#include "emulators/settings/QualityValue.h"

#include <QHash>
#include <QStringList>
#include <optional>

using namespace Qt::StringLiterals;

static bool isProgramItself(const QString &emulatorID)
{
    return emulatorID == "nxnative"_L1 || emulatorID == "native"_L1;
}

static bool takesWidescreen(const QString &emulatorID, Host host)
{
    static const QStringList onLinux{u"dolphin"_s, u"pcsx2"_s, u"duckstation"_s, u"flycast"_s};
    return host == Host::mac ? emulatorID == "dolphin"_L1 : onLinux.contains(emulatorID);
}

/// The lines of the picture that the console itself put out; absent: no quality choice.
static std::optional<int> baseHeight(const QString &emulatorID, Host host)
{
    static const QHash<QString, int> heights{
        {u"dolphin"_s, 480}, {u"pcsx2"_s, 448}, {u"duckstation"_s, 240}, {u"ppsspp"_s, 272},
        {u"rpcs3"_s, 720},   {u"xemu"_s, 480},  {u"azahar"_s, 240},      {u"flycast"_s, 480},
    };
    if (emulatorID == "melonds"_L1 && host == Host::linux) return 192;
    const auto height = heights.constFind(emulatorID);
    return height == heights.constEnd() ? std::nullopt : std::optional(*height);
}

static std::optional<int> outputHeight(const QString &emulatorID, QualityPreset preset, Host host)
{
    const auto base = baseHeight(emulatorID, host);
    if (!base) return {};
    const int value = qualityValue(emulatorID, preset, host);
    if (emulatorID == "flycast"_L1) return value;
    return emulatorID == "rpcs3"_L1 ? *base * value / 100 : *base * value;
}

SettingsSupport settingsSupport(const QString &emulatorID, QualityPreset quality, Host host)
{
    const EmulatorDef *def = emulatorWithID(emulatorID, host);
    return {.resolution = baseHeight(emulatorID, host).has_value(),
            .fps = emulatorID == "rpcs3"_L1 || emulatorID == "shadps4"_L1,
            .widescreen = takesWidescreen(emulatorID, host),
            .hud = true,
            .fullScreen = true,
            .emulatorName = def ? def->name : QString(),
            .emulatorID = emulatorID,
            .quality = quality};
}

bool counterNeedsMangoHud(const QString &emulatorID, Host host)
{
    return host == Host::linux && (isProgramItself(emulatorID) || !showsOwnCounter(emulatorID));
}

QString heightLabel(int lines)
{
    if (lines < 600) return QString::number(lines) + u'p';
    if (lines < 850) return u"720p"_s;
    if (lines < 1250) return u"1080p"_s;
    return lines < 1700 ? u"1440p"_s : u"4K"_s;
}

Message qualityCaption(const QString &emulatorID, QualityPreset preset, Host host)
{
    const QString label = qualityLabel(emulatorID, preset, host);
    if (!label.isEmpty())
        return {preset == QualityPreset::minimum ? u"Original resolution (%@)"_s : u"About %@"_s, {label}};
    switch (preset) {
    case QualityPreset::minimum:
        return {u"Runs on any Mac"_s, {}};
    case QualityPreset::medium:
        return {u"Sharp, for most Macs"_s, {}};
    case QualityPreset::maximum:
        break;
    }
    return {u"The best picture, for powerful Macs"_s, {}};
}

QString qualityLabel(const QString &emulatorID, QualityPreset preset, Host host)
{
    const auto height = outputHeight(emulatorID, preset, host);
    return height ? heightLabel(*height) : QString();
}

QString qualityNotOffered(const QString &emulatorID)
{
    static const QString retro = u"Retro consoles look the same on any Mac: nothing to set."_s;
    static const QHash<QString, QString> texts{
        {u"shadps4"_s, u"shadPS4 shows PS4 games at their own resolution: there is no quality setting to change."_s},
        {u"cemu"_s,
         u"Cemu's resolution is set with its graphic packs (Options → Graphic packs): not handled by Velko yet."_s},
        {u"mgba"_s, retro},
        {u"openemu"_s, retro},
        {u"retroarch"_s, retro},
        {u"melonds"_s, u"melonDS quality isn't handled by Velko yet."_s},
        {u"nxnative"_s, u"Native Switch games run at their own resolution."_s},
        {u"native"_s, u"Native games set their resolution themselves."_s},
    };
    return texts.value(emulatorID, u"Quality isn't handled for this emulator yet."_s);
}
