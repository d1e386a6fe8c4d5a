#pragma once

#include <QImage>
#include <QString>

/// What stands in for a cover: the console's colours, the game's title and the console's short label.
struct CoverPlate {
    QString title;
    QString label;
    QString consoleID;
    QSize size; ///< device pixels
    double radius = 0; ///< of the corners, device pixels
    bool faded = false; ///< a console without any way to play: less colour
    bool operator==(const CoverPlate &) const = default;
};

/// The plate with its rounded corners, premultiplied. Without title and label it is the ground of a console's tile.
/// The same plate gives the same picture. Safe from any thread.
QImage painted(const CoverPlate &plate);
