#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

/// What an archive may hold at most.
struct UnpackLimits {
    int entries = 50'000;
    qint64 fileSize = 8 * 1024 * 1024; ///< of one unpacked file
    qint64 size = 512 * 1024 * 1024; ///< of all unpacked files together
};

/// Unpacks those files of an archive that are wanted, by their path in it, into a folder that exists. Nothing when the
/// archive is damaged, goes beyond the limits or has an entry that leads out of the folder; what has been unpacked
/// until then stays. Links and special files are never made. Answers the paths that were unpacked. Blocks.
std::optional<QStringList> unpackArchive(const QString &archive, const QString &folder,
                                         const std::function<bool(const QString &path)> &wanted,
                                         const UnpackLimits &limits = {});

/// One file of a disc image (ISO 9660), by its path in any case. Nothing when it is not there or is larger than
/// `largest`. Blocks.
std::optional<QByteArray> fileInDisc(const QString &image, const QString &path, qint64 largest);
