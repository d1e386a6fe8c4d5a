#include "library/QualityPreset.h"

using namespace Qt::StringLiterals;

QString name(QualityPreset preset)
{
    switch (preset) {
    case QualityPreset::minimum:
        return u"minimum"_s;
    case QualityPreset::medium:
        return u"medium"_s;
    case QualityPreset::maximum:
        return u"maximum"_s;
    }
    Q_UNREACHABLE();
}

std::optional<QualityPreset> qualityPresetNamed(const QString &text)
{
    for (const QualityPreset preset : {QualityPreset::minimum, QualityPreset::medium, QualityPreset::maximum}) {
        if (name(preset) == text) return preset;
    }
    return {};
}
