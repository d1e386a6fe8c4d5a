#pragma once

#include "VirtualDisplay.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// The games of a text in the form of the library file; nothing when it is not one.
inline std::optional<QJsonArray> gamesOf(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray()) return {};
    return document.array();
}

/// The library file of the display's user.
inline std::optional<QJsonArray> libraryOf(const VirtualDisplay &display)
{
    return gamesOf(display.read(QStringLiteral(".local/share/VelkoEmu/library.json")));
}
