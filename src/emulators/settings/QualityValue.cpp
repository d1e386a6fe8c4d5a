#include "emulators/settings/QualityValue.h"

#include <QHash>
#include <array>

using namespace Qt::StringLiterals;

int qualityValue(const QString &emulatorID, QualityPreset preset, Host host)
{
    static const QHash<QString, std::array<int, 3>> values{
        {u"dolphin"_s, {1, 2, 4}}, {u"pcsx2"_s, {1, 2, 4}},          {u"duckstation"_s, {1, 4, 8}},
        {u"ppsspp"_s, {1, 4, 8}},  {u"rpcs3"_s, {100, 150, 300}},    {u"xemu"_s, {1, 2, 3}},
        {u"azahar"_s, {1, 3, 6}},  {u"flycast"_s, {480, 960, 1920}},
    };
    static const std::array<int, 3> melonDS{1, 4, 8}; // its own scale is set on Linux only
    if (emulatorID == "melonds"_L1 && host == Host::linux) return melonDS[size_t(preset)];
    return values.value(emulatorID, {1, 1, 1})[size_t(preset)];
}

QualityPreset defaultQuality(const QString &preference)
{
    return qualityPresetNamed(preference).value_or(QualityPreset::medium);
}
