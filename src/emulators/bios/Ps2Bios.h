#pragma once

#include "base/Message.h"

#include <QByteArray>
#include <optional>

/// What a PlayStation 2 BIOS says about itself: "PlayStation 2 BIOS 1.60 (America)". Nothing for any other content.
std::optional<Message> ps2BiosTitle(const QByteArray &image);
