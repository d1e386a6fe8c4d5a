#include "emulators/patches/FrameRatePatch.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

bool is60FpsPatch(const QString &name)
{
    static const QRegularExpression words(
        u"60\\s*-?\\s*(fps|hz)|fps\\s*unlock|unlock(ed)?\\s*(fps|frame)|frame\\s*-?\\s*rate\\s*unlock|uncapped\\s*fps|"
        "high\\s*fps"_s);
    return words.match(name.toLower()).hasMatch();
}

int vblankRateOf(const QString &notes)
{
    static const QRegularExpression number(u"vblank[^.]{0,40}?(120|240)"_s);
    const QString text = notes.toLower();
    if (!text.contains("vblank"_L1)) return 60;
    if (text.contains("half the vblank"_L1)) return 120;
    if (text.contains("must be set to the default"_L1) || text.contains("vblank rate 60"_L1)) return 60;
    const auto match = number.match(text);
    if (!match.hasMatch()) return 60;
    return match.captured().contains("240"_L1) ? 240 : 120;
}
