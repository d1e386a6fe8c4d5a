#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// What a PlayStation 2 BIOS says about itself: "PlayStation 2 BIOS 1.60 (America)". Nothing for any other content.
std::optional<QString> ps2BiosTitle(const QByteArray &image);
