#include "emulators/patches/ArchiveUnpacking.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <archive.h>
#include <archive_entry.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Archive = std::unique_ptr<archive, decltype(&archive_read_free)>;

/// A relative path without ".." in it, with forward slashes only.
bool staysInside(const QString &path)
{
    if (path.isEmpty() || path.startsWith(u'/') || path.contains(u'\\') || path.contains(QChar(0))) return false;
    const QStringList parts = path.split(u'/');
    return !parts.contains(u".."_s) && !parts.first().endsWith(u':');
}

/// Bytes written, or nothing when the entry is damaged or too long.
std::optional<qint64> writeEntry(archive *from, const QString &path, qint64 largest)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QFile::WriteOnly | QFile::NewOnly)) return {};
    qint64 size = 0;
    const void *bytes = nullptr;
    size_t length = 0;
    la_int64_t offset = 0;
    while (true) {
        const int result = archive_read_data_block(from, &bytes, &length, &offset);
        if (result == ARCHIVE_EOF) return size;
        if (result != ARCHIVE_OK || offset != size || qint64(length) > largest - size) return {};
        if (file.write(static_cast<const char *>(bytes), qint64(length)) != qint64(length)) return {};
        size += qint64(length);
    }
}
}

std::optional<QStringList> unpackArchive(const QString &archivePath, const QString &folder,
                                         const std::function<bool(const QString &)> &wanted, const UnpackLimits &limits)
{
    const Archive from(archive_read_new(), &archive_read_free);
    archive_read_support_format_zip_seekable(from.get()); // by its directory, which a cut archive has lost
    if (archive_read_open_filename(from.get(), QFile::encodeName(archivePath).constData(), 64 * 1024) != ARCHIVE_OK)
        return {};
    QStringList unpacked;
    qint64 left = limits.size;
    archive_entry *entry = nullptr;
    for (int count = 0;; ++count) {
        const int result = archive_read_next_header(from.get(), &entry);
        if (result == ARCHIVE_EOF) return unpacked;
        if (result < ARCHIVE_WARN || count >= limits.entries) return {};
        const char *name = archive_entry_pathname_utf8(entry);
        const QString path = QString::fromUtf8(name ? name : "");
        if (!staysInside(path)) return {};
        if (archive_entry_filetype(entry) != AE_IFREG || archive_entry_hardlink(entry) || !wanted(path)) continue;
        const auto size = writeEntry(from.get(), folder + u'/' + path, std::min(left, limits.fileSize));
        if (!size) return {};
        left -= *size;
        unpacked += path;
    }
}

std::optional<QByteArray> fileInDisc(const QString &image, const QString &path, qint64 largest)
{
    constexpr int mostLookedAt = 50'000;
    const Archive disc(archive_read_new(), &archive_read_free);
    archive_read_support_format_iso9660(disc.get());
    if (archive_read_open_filename(disc.get(), QFile::encodeName(image).constData(), 64 * 1024) != ARCHIVE_OK)
        return {};
    archive_entry *entry = nullptr;
    for (int count = 0; count < mostLookedAt; ++count) {
        const int result = archive_read_next_header(disc.get(), &entry);
        if (result == ARCHIVE_EOF || result < ARCHIVE_WARN) return {};
        const char *name = archive_entry_pathname_utf8(entry);
        if (path.compare(QString::fromUtf8(name ? name : ""), Qt::CaseInsensitive) != 0) continue;
        const qint64 size = archive_entry_size(entry);
        if (archive_entry_filetype(entry) != AE_IFREG || size < 0 || size > largest) return {};
        QByteArray content(size, '\0');
        return archive_read_data(disc.get(), content.data(), size_t(size)) == size ? std::optional(content)
                                                                                   : std::nullopt;
    }
    return {};
}
