#pragma once

#include <QColor>
#include <QHash>
#include <QString>

/// The hue of each console's plate, in degrees, as `Theme.hues` has it for QML.
const QHash<QString, int> &consoleHues();
int consoleHue(const QString &consoleID); ///< 220 for an unknown console

/// A colour of that hue; saturation and lightness from 0 to 1.
QColor hueColor(int hue, double saturation, double lightness, double alpha = 1);
