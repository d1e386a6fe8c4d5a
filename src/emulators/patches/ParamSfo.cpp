#include "emulators/patches/ParamSfo.h"

#include <QtEndian>

// A header of 20 bytes, an index of 16 bytes for each key, the keys as C strings, the values. Little-endian.
static constexpr qsizetype headerSize = 20;
static constexpr qsizetype entrySize = 16;

/// An unsigned number of the type's width; 0 outside the file.
template <class Number>
static qsizetype numberAt(const QByteArray &file, qsizetype offset)
{
    if (offset < 0 || offset + qsizetype(sizeof(Number)) > file.size()) return 0;
    return qFromLittleEndian<Number>(file.constData() + offset);
}

static QByteArray wordAt(const QByteArray &file, qsizetype offset, qsizetype longest)
{
    if (offset < 0 || offset >= file.size()) return {};
    const QByteArray bytes = file.sliced(offset, std::min(longest, file.size() - offset));
    const qsizetype end = bytes.indexOf('\0');
    return end < 0 ? bytes : bytes.first(end);
}

std::optional<QString> sfoText(const QByteArray &file, const QByteArray &key)
{
    if (!file.startsWith(QByteArrayLiteral("\0PSF"))) return {};
    const qsizetype keys = numberAt<quint32>(file, 8);
    const qsizetype values = numberAt<quint32>(file, 12);
    const qsizetype count = std::min(numberAt<quint32>(file, 16), (file.size() - headerSize) / entrySize);
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype entry = headerSize + i * entrySize;
        if (wordAt(file, keys + numberAt<quint16>(file, entry), 64) != key) continue;
        constexpr qsizetype text = 0x0204;
        if (numberAt<quint16>(file, entry + 2) != text) return {};
        const QByteArray value =
            wordAt(file, values + numberAt<quint32>(file, entry + 12), numberAt<quint32>(file, entry + 4));
        return value.isEmpty() ? std::nullopt : std::optional(QString::fromUtf8(value));
    }
    return {};
}
