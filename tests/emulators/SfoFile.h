#pragma once

#include <QByteArray>
#include <QMap>
#include <QtEndian>

/// A param.sfo with these texts.
inline QByteArray sfoFile(const QMap<QByteArray, QByteArray> &texts)
{
    const auto number = [](quint32 value) {
        QByteArray bytes(4, '\0');
        qToLittleEndian(value, bytes.data());
        return bytes;
    };
    QByteArray index, keys, values;
    for (auto text = texts.keyValueBegin(); text != texts.keyValueEnd(); ++text) {
        const quint32 length = quint32(text->second.size()) + 1;
        index += number(quint32(keys.size()) | 0x0204u << 16) + number(length) + number(length)
            + number(quint32(values.size()));
        keys += text->first + '\0';
        values += text->second + '\0';
    }
    const quint32 keyTable = 20 + quint32(index.size());
    return QByteArray("\0PSF\1\1\0\0", 8) + number(keyTable) + number(keyTable + quint32(keys.size()))
        + number(quint32(texts.size())) + index + keys + values;
}
