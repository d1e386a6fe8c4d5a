#pragma once

#include <QString>

/// The shape of a cover. A game without a picture has the one that its console's boxes had.
enum class CoverFamily { box, square, wide };

CoverFamily coverFamily(const QString &consoleID);
QString name(CoverFamily family); ///< how QML knows it
/// Height over width.
double heightRatio(CoverFamily family);
