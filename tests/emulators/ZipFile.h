#pragma once

#include <QByteArray>
#include <QList>
#include <archive.h>
#include <archive_entry.h>

struct ZipEntry {
    QByteArray name; ///< may be anything; a folder ends in "/"
    QByteArray content; ///< of a link: where it leads
    bool link = false;
};

enum class Packing { zip, disc };

inline QByteArray packed(const QList<ZipEntry> &entries, Packing packing)
{
    QByteArray bytes(4 * 1024 * 1024, '\0');
    size_t used = 0;
    archive *zip = archive_write_new();
    if (packing == Packing::zip)
        archive_write_set_format_zip(zip);
    else
        archive_write_set_format_iso9660(zip);
    archive_write_open_memory(zip, bytes.data(), size_t(bytes.size()), &used);
    for (const ZipEntry &each : entries) {
        archive_entry *entry = archive_entry_new();
        archive_entry_set_pathname(entry, each.name.constData());
        archive_entry_set_mode(entry, (each.link ? AE_IFLNK : each.name.endsWith('/') ? AE_IFDIR : AE_IFREG) | 0644);
        if (each.link)
            archive_entry_set_symlink(entry, each.content.constData());
        else
            archive_entry_set_size(entry, each.content.size());
        archive_write_header(zip, entry);
        if (!each.link) archive_write_data(zip, each.content.constData(), size_t(each.content.size()));
        archive_entry_free(entry);
    }
    archive_write_close(zip);
    archive_write_free(zip);
    return bytes.first(qsizetype(used));
}

inline QByteArray zipOf(const QList<ZipEntry> &entries)
{
    return packed(entries, Packing::zip);
}
