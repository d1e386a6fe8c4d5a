#include "emulators/bios/Ps2Bios.h"

#include <QHash>
#include <QtEndian>

using namespace Qt::StringLiterals;

// The image holds small files one after another, each begun at a multiple of 16 bytes. Their directory is one of them:
// 16 bytes an entry (name of 10, 2 bytes, size of 4), "RESET" first, ended by an entry without a name.
static constexpr qsizetype entrySize = 16;

static QByteArray nameAt(const QByteArray &image, qsizetype entry)
{
    const QByteArray name = image.sliced(entry, 10);
    const qsizetype end = name.indexOf('\0');
    return end < 0 ? name : name.first(end);
}

/// The content of "ROMVER", such as "0160AC20010730": version, region, kind of machine, date.
static QByteArray romVersion(const QByteArray &image)
{
    qsizetype entry = image.indexOf(QByteArrayLiteral("RESET\0\0\0\0\0"));
    qsizetype offset = 0;
    while (entry >= 0 && entry + entrySize <= image.size() && offset <= image.size()) {
        const QByteArray name = nameAt(image, entry);
        if (name.isEmpty()) return {};
        const qsizetype size = qFromLittleEndian<quint32>(image.constData() + entry + 12);
        if (name == "ROMVER") return image.mid(offset, std::min<qsizetype>(size, 16));
        offset += (size + entrySize - 1) / entrySize * entrySize;
        entry += entrySize;
    }
    return {};
}

std::optional<Message> ps2BiosTitle(const QByteArray &image)
{
    static const QHash<char, QString> regions{
        {'J', u"Japan"_s}, {'A', u"America"_s}, {'E', u"Europe"_s}, {'H', u"Asia"_s}, {'C', u"China"_s}};
    const QByteArray version = romVersion(image);
    if (version.size() < 5) return {};
    for (const char digit : version.first(4)) {
        if (digit < '0' || digit > '9') return {};
    }
    const QString number = u"%1.%2"_s.arg(version.first(2).toInt()).arg(QString::fromLatin1(version.sliced(2, 2)));
    const Message region{regions.value(version[4], u"another region"_s), {}};
    return Message{u"PlayStation 2 BIOS %@ (%@)"_s, {number}, {{1, region}}};
}
