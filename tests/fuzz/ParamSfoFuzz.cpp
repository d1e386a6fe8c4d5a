// Reads very many damaged param.sfo files: velko-fuzz-sfo [RUNS] [SEED]. Built with address checks, which end it at the
// first byte that is read outside a file. The same seed gives the same files.
#include "emulators/patches/ParamSfo.h"

#include <QByteArray>
#include <QtEndian>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>

using namespace Qt::StringLiterals;

static QByteArray number(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

/// A sound file with two texts and a number.
static QByteArray soundFile()
{
    const QByteArray keys = "APP_VER\0PARENTAL_LEVEL\0TITLE_ID\0\0\0\0"_ba;
    const QByteArray values = "01.04\0\0\0"_ba + number(5) + "BLUS30443\0\0\0\0\0\0\0"_ba;
    QByteArray index;
    const auto entry = [&index](quint16 key, quint16 format, quint32 used, quint32 reserved, quint32 value) {
        index += number(key | quint32(format) << 16) + number(used) + number(reserved) + number(value);
    };
    entry(0, 0x0204, 6, 8, 0);
    entry(8, 0x0404, 4, 4, 8);
    entry(23, 0x0204, 10, 16, 12);
    const quint32 keyTable = 20 + quint32(index.size());
    return "\0PSF\1\1\0\0"_ba + number(keyTable) + number(keyTable + quint32(keys.size())) + number(3) + index + keys
        + values;
}

static void damage(QByteArray &file, std::mt19937 &random)
{
    const auto below = [&random](qsizetype limit) {
        return qsizetype(random() % quint32(std::max<qsizetype>(limit, 1)));
    };
    const quint32 edges[] = {0,
                             1,
                             0x7f,
                             0xff,
                             0x7fff,
                             0xffff,
                             0x7fffffff,
                             0x80000000,
                             0xfffffff0,
                             0xffffffff,
                             quint32(file.size()),
                             quint32(file.size() - 1)};
    switch (random() % 6) {
    case 0:
        file[below(file.size())] = char(random());
        break;
    case 1:
        file.truncate(below(file.size() + 1));
        break;
    case 2:
        file.insert(below(file.size() + 1), QByteArray(below(40), char(random())));
        break;
    case 3: // any number of the header or the index, to an edge
        if (file.size() >= 68) qToLittleEndian(edges[random() % std::size(edges)], file.data() + 8 + below(15) * 4);
        break;
    case 4: // one that is nearly right
        if (file.size() >= 68) {
            char *place = file.data() + 8 + below(15) * 4;
            qToLittleEndian(qFromLittleEndian<quint32>(place) + random() % 33 - 16, place);
        }
        break;
    default:
        file.remove(below(file.size()), below(20));
    }
    if (file.isEmpty()) file = QByteArray(1, '\0');
}

int main(int argc, char **argv)
{
    const long runs = argc > 1 ? std::atol(argv[1]) : 1'000'000;
    std::mt19937 random(argc > 2 ? unsigned(std::atol(argv[2])) : 1);
    const QByteArray sound = soundFile();
    long texts = 0;
    for (long run = 0; run < runs; ++run) {
        QByteArray file = sound;
        for (int times = int(random() % 4); times >= 0; --times)
            damage(file, random);
        // A block of exactly this size, so that the byte behind it is watched.
        const std::unique_ptr<char[]> block(new char[size_t(file.size())]);
        std::copy(file.begin(), file.end(), block.get());
        const QByteArray exact = QByteArray::fromRawData(block.get(), file.size());
        for (const char *key : {"TITLE_ID", "APP_VER", "PARENTAL_LEVEL", ""}) {
            const auto text = sfoText(exact, key);
            if (text && text->size() > file.size()) std::abort();
            texts += text.has_value();
        }
    }
    std::printf("%ld files, %ld texts found\n", runs, texts);
    return texts > 0 ? 0 : 1;
}
