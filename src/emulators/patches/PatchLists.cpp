#include "emulators/patches/PatchLists.h"

#include "base/ReferenceDate.h"
#include "emulators/patches/ArchiveUnpacking.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

using namespace Qt::StringLiterals;

static constexpr qint64 largestList = 64 * 1024 * 1024; // the real one has some MiB
static constexpr qint64 freshDays = 7;

static QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > largestList || !file.open(QFile::ReadOnly)) return {};
    return file.readAll();
}

static bool writeWhole(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    return file.open(QSaveFile::WriteOnly) && file.write(content) == content.size() && file.commit();
}

static bool isFresh(const QDateTime &looked, const QDateTime &now)
{
    return looked.isValid() && looked <= now && looked.daysTo(now) < freshDays;
}

// Our index of RPCS3's list: an object with what it was made from and the entries.

static QString ps3IndexFile(const Places &places)
{
    return places.dataFolder() + u"/rpcs3-patches.json"_s;
}

static QString stampOf(const QFileInfo &list)
{
    return u"%1 %2 %3"_s.arg(list.absoluteFilePath()).arg(list.size()).arg(list.lastModified().toMSecsSinceEpoch());
}

static QJsonObject ps3Index(const Places &places)
{
    return QJsonDocument::fromJson(contentOf(ps3IndexFile(places))).object();
}

static QList<PS3PatchEntry> buildPs3Index(const EmulatorFolders &rpcs3, const Places &places, double looked)
{
    const QFileInfo list(ps3ListFile(rpcs3));
    const QList<PS3PatchEntry> entries = readPs3Patches(contentOf(list.filePath())).entries;
    const QJsonObject index{{u"list"_s, stampOf(list)},
                            {u"looked"_s, looked},
                            {u"entries"_s, QString::fromUtf8(encodePs3Patches(entries))}};
    writeWhole(ps3IndexFile(places), QJsonDocument(index).toJson(QJsonDocument::Compact));
    return entries;
}

QString ps3ListFile(const EmulatorFolders &rpcs3)
{
    return rpcs3.config + u"/patches/patch.yml"_s;
}

PatchListState ps3ListState(const EmulatorFolders &rpcs3, const Places &places, const QDateTime &now)
{
    const QFileInfo list(ps3ListFile(rpcs3));
    if (!list.isFile()) return {};
    const QJsonObject index = ps3Index(places);
    const bool ours = index[u"list"_s].toString() == stampOf(list);
    const QDateTime looked = ReferenceDate{index[u"looked"_s].toDouble()}.toDateTime();
    return {true, isFresh(list.lastModified(), now) || (ours && isFresh(looked, now))};
}

QByteArray ps3ListHash(const EmulatorFolders &rpcs3)
{
    const QByteArray list = contentOf(ps3ListFile(rpcs3));
    return list.isEmpty() ? QByteArray() : QCryptographicHash::hash(list, QCryptographicHash::Sha256).toHex();
}

bool takePs3Answer(const QByteArray &json, const EmulatorFolders &rpcs3, const Places &places, const QDateTime &now)
{
    constexpr int newList = 0, unchanged = 1; // below 0: no list, maintenance, a question that the server refuses
    const QJsonObject answer = QJsonDocument::fromJson(json).object();
    const int code = answer[u"return_code"_s].toInt(-1);
    const double looked = ReferenceDate::from(now).seconds;
    if (code == unchanged && QFileInfo(ps3ListFile(rpcs3)).isFile()) {
        buildPs3Index(rpcs3, places, looked);
        return true;
    }
    const QByteArray list = answer[u"patch"_s].toString().toUtf8();
    if (code != newList || list.isEmpty()) return false;
    const PS3PatchList read = readPs3Patches(list);
    if (read.blocks == 0 || read.broken >= read.blocks) return false;
    if (!writeWhole(ps3ListFile(rpcs3), list)) return false;
    buildPs3Index(rpcs3, places, looked);
    return true;
}

QList<PS3PatchEntry> ps3Entries(const EmulatorFolders &rpcs3, const Places &places)
{
    const QFileInfo list(ps3ListFile(rpcs3));
    if (!list.isFile()) return {};
    const QJsonObject index = ps3Index(places);
    if (index[u"list"_s].toString() == stampOf(list)) {
        if (const auto entries = decodePs3Patches(index[u"entries"_s].toString().toUtf8())) return *entries;
    }
    return buildPs3Index(rpcs3, places, ReferenceDate::from(list.lastModified()).seconds);
}

QString ps4CacheFolder(const Places &places)
{
    return places.dataFolder() + u"/patches"_s;
}

PatchListState ps4ListState(const Places &places, const QDateTime &now)
{
    const QFileInfo index(ps4CacheFolder(places) + u"/index.json"_s);
    return {index.isFile(), index.isFile() && isFresh(index.lastModified(), now)};
}

bool takePs4Archive(const QString &archive, const Places &places, const QDateTime &now)
{
    const QString cache = ps4CacheFolder(places);
    const QString fresh = cache + u".new"_s;
    const QString old = cache + u".old"_s;
    QDir(fresh).removeRecursively();
    if (!QDir().mkpath(fresh)) return false;
    const auto unpacked = unpackArchive(
        archive, fresh, [](const QString &path) { return path.endsWith(".xml"_L1, Qt::CaseInsensitive); });
    QList<PS4PatchFile> files;
    for (const QString &path : unpacked.value_or(QStringList())) {
        const auto file = readPs4Patches(contentOf(fresh + u'/' + path), path);
        if (file && !file->serials.isEmpty()) files += *file;
    }
    const QString index = fresh + u"/index.json"_s;
    if (files.isEmpty() || !writeWhole(index, encodePs4Index(files))) {
        QDir(fresh).removeRecursively();
        return false;
    }
    QFile written(index);
    if (written.open(QFile::ReadWrite)) written.setFileTime(now, QFile::FileModificationTime);
    QDir(old).removeRecursively();
    QDir().rename(cache, old);
    const bool taken = QDir().rename(fresh, cache);
    if (!taken) QDir().rename(old, cache);
    QDir(old).removeRecursively();
    return taken;
}

QList<PS4PatchFile> ps4Files(const QString &serial, const Places &places)
{
    const auto index = decodePs4Index(contentOf(ps4CacheFolder(places) + u"/index.json"_s));
    QList<PS4PatchFile> files;
    for (const PS4PatchFile &file : index.value_or(QList<PS4PatchFile>())) {
        if (file.serials.contains(serial)) files += file;
    }
    return files;
}
