#pragma once

#include <QString>
#include <optional>

/// Picture quality of one game; stored by its name.
enum class QualityPreset { minimum, medium, maximum };

QString name(QualityPreset preset);
std::optional<QualityPreset> qualityPresetNamed(const QString &name);
