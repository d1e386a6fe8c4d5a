#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <optional>

/// What an address below "image://shot/" asks for.
struct ShotRequest {
    QString name; ///< of the file in the folder of screenshots
    QSize size; ///< device pixels
    bool whole = false; ///< all of the picture within that size; else its middle, filling it
    int radius = 0; ///< of the corners, device pixels
    bool operator==(const ShotRequest &) const = default;
};

/// The address of a picture in a folder, for `whole` as "<name>/whole/<w>x<h>", else "<name>/<w>x<h>/<radius>", the
/// name percent-encoded.
QString shotSource(const QString &file);

/// Reads an address. Nothing for a name that leads out of the folder or a size larger than a screen.
std::optional<ShotRequest> shotRequest(const QString &address);

/// The picture in the size that is shown. Small ones are kept as files in `cache`, for as long as their original does
/// not change. Null for a file that is no picture. Safe from any thread.
QImage shotPicture(const QString &file, const ShotRequest &request, const QString &cache);
