#include "emulators/bios/BiosIdentity.h"

#include "catalog/KnownBios.h"
#include "emulators/bios/Ps2Bios.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

using Grade = BiosIdentity::Grade;

namespace {

constexpr qint64 largestHashed = 16 * 1024 * 1024; // firmware and hard disks are larger, and in no list
constexpr qint64 kilobyte = 1024;

BiosIdentity knownFile(const KnownBios &known, const QString &fileName)
{
    static const QStringList anyName{u"ps1"_s, u"xbox"_s}; // their emulators look into the files
    BiosIdentity identity{Grade::good, known.consoleID, {known.title, {}}, known.name, {}};
    if (known.consoleID == "xbox"_L1) identity.xemuKey = u"bootrom_path"_s;
    const bool named = fileName == known.name;
    if (anyName.contains(known.consoleID)) {
        identity.name.clear();
        for (const KnownBios &other : knownBiosFiles()) {
            // Under the name of another file of the table it would be taken for that one.
            if (other.consoleID == known.consoleID && other.name == fileName.toLower()
                && other.name != known.name.toLower()) {
                identity.grade = Grade::misnamed;
                identity.name = known.name;
            }
        }
    } else if (!named && !(known.consoleID == "dc"_L1 && fileName == "dc_bios.bin"_L1)) {
        identity.grade = Grade::misnamed;
    }
    if (known.badDump) identity.grade = Grade::badDump;
    return identity;
}

/// What has no list of contents but a shape of its own.
BiosIdentity shapedFile(const QByteArray &start, qint64 size, const QString &name)
{
    if (start.startsWith("SCEUF")) return {Grade::good, u"ps3"_s, {u"PlayStation 3 firmware"_s, {}}, {}, {}};
    if (start.startsWith("QFI\xfb"))
        return {Grade::good, u"xbox"_s, {u"Xbox hard disk image"_s, {}}, {}, u"hdd_path"_s};
    if (name.startsWith("libsce"_L1) && name.endsWith(".sprx"_L1))
        return {Grade::good, u"ps4"_s, {u"PlayStation 4 firmware module"_s, {}}, {}, {}};
    const bool flash = name == "dc_flash.bin"_L1 || name == "dc_nvmem.bin"_L1;
    if (flash && size == 128 * kilobyte) return {Grade::good, u"dc"_s, {u"Dreamcast flash memory"_s, {}}, {}, {}};
    return {};
}

/// A file that only its name connects with a console.
BiosIdentity namedFile(qint64 size, const QString &name)
{
    for (const KnownBios &known : knownBiosFiles()) {
        if (known.name.toLower() == name)
            return {Grade::unknown, known.consoleID, {}, {}, known.consoleID == "xbox"_L1 ? u"bootrom_path"_s : u""_s};
    }
    if (name.startsWith("dc_"_L1) && name.endsWith(".bin"_L1)) return {Grade::unknown, u"dc"_s, {}, {}, {}};
    if (name.endsWith(".pup"_L1)) return {Grade::unknown, u"ps3"_s, {}, {}, {}};
    if (name.endsWith(".qcow2"_L1)) return {Grade::unknown, u"xbox"_s, {}, {}, u"hdd_path"_s};
    if (name.contains("mcpx"_L1)) return {Grade::unknown, u"xbox"_s, {}, {}, u"bootrom_path"_s};
    const bool flashSize = size == 256 * kilobyte || size == 512 * kilobyte || size == 1024 * kilobyte;
    for (const auto &word : {"complex"_L1, "4627"_L1, "5838"_L1, "xbox"_L1, "cerbios"_L1}) {
        if (flashSize && name.contains(word)) return {Grade::unknown, u"xbox"_s, {}, {}, u"flashrom_path"_s};
    }
    if (name.startsWith("scph"_L1) && size == 512 * kilobyte) return {Grade::unknown, u"ps1"_s, {}, {}, {}};
    if (name.startsWith("scph"_L1) && size >= 2048 * kilobyte) return {Grade::unknown, u"ps2"_s, {}, {}, {}};
    return {};
}
}

BiosIdentity identityOf(const BiosContent &content)
{
    if (const KnownBios *known = knownBios(content.md5)) return knownFile(*known, content.name);
    const QString name = content.name.toLower();
    const BiosIdentity shaped = shapedFile(content.start, content.size, name);
    if (!shaped.consoleID.isEmpty()) return shaped;
    if (const auto title = ps2BiosTitle(content.start)) return {Grade::good, u"ps2"_s, *title, {}, {}};
    return namedFile(content.size, name);
}

BiosIdentity identifyBios(const QString &path)
{
    QFile file(path);
    const QFileInfo info(path);
    if (!info.isFile() || !file.open(QFile::ReadOnly)) return {};
    const QByteArray start = file.read(info.size() > largestHashed ? 64 : largestHashed);
    const QByteArray md5 = QCryptographicHash::hash(start, QCryptographicHash::Md5).toHex();
    return identityOf({info.fileName(), info.size(), md5, start});
}

Message biosRemark(const BiosIdentity &identity, const QString &fileName, const QString &label)
{
    switch (identity.grade) {
    case Grade::good:
        return {u"“%@” is a good copy: %@."_s, {fileName}, {{1, identity.title}}};
    case Grade::misnamed:
        return {u"“%@” is really %@. Name it “%@” and drop it again, so that the emulator finds it."_s,
                {fileName, {}, identity.name},
                {{1, identity.title}}};
    case Grade::badDump:
        return {u"“%@” is a bad dump of %@ and won't work. Dump it from your console again."_s,
                {fileName},
                {{1, identity.title}}};
    case Grade::unknown:
        break;
    }
    return {
        u"“%@” isn't a known file (%@). Should games not start, try another one."_s, {fileName}, {{1, {label, {}}}}};
}
