#include "emulators/bios/XemuSetup.h"

#include "base/TomlText.h"
#include "emulators/bios/BiosIdentity.h"
#include "emulators/finding/EmulatorFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QPair>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

static constexpr qsizetype mostFilesLookedAt = 200;
static constexpr qint64 largestSettings = 4 * 1024 * 1024;
static const QStringList systemFilesTable{u"sys"_s, u"files"_s};

QString xemuSettingsFile(const InstalledEmulator &xemu, const Places &places)
{
    return settingsFile(u"xemu"_s, emulatorFolders(xemu, places));
}

QMap<QString, QString> xemuSystemFiles(const QString &toml)
{
    QMap<QString, QString> files;
    for (const TomlEntry &entry : tomlEntries(toml.toUtf8())) {
        const auto text = entry.path.size() == 3 ? textOfToml(entry.value) : std::nullopt;
        if (text && entry.path.first(2) == systemFilesTable) files.insert(entry.path.last(), *text);
    }
    return files;
}

FileEdits xemuFileEdits(const InstalledEmulator &xemu, const QMap<QString, QString> &files, const Places &places)
{
    FileEdits edits{xemuSettingsFile(xemu, places), ConfigFormat::toml, {}};
    for (const auto &[key, path] : files.asKeyValueRange())
        edits.edits += ConfigEdit{systemFilesTable, key, tomlOfText(path)};
    return edits;
}

/// The files in xemu's own folder, by key: a known one, else the newest.
static QMap<QString, QString> copiesIn(const QString &folder)
{
    QMap<QString, QString> copies;
    QSet<QString> good;
    const QFileInfoList newestFirst = QDir(folder).entryInfoList(QDir::Files, QDir::Time);
    for (const QFileInfo &file : newestFirst.first(std::min(newestFirst.size(), mostFilesLookedAt))) {
        const BiosIdentity identity = identifyBios(file.filePath());
        const QString &key = identity.xemuKey;
        if (key.isEmpty() || identity.grade == BiosIdentity::Grade::badDump) continue;
        const bool better = identity.grade == BiosIdentity::Grade::good && !good.contains(key);
        if (better) good += key;
        if (better || !copies.contains(key)) copies.insert(key, file.filePath());
    }
    return copies;
}

static bool canEnter(const QByteArray &toml, const QString &key, const QString &path)
{
    const auto edited = editToml(toml, systemFilesTable, key, {tomlOfText(path)});
    return edited && xemuSystemFiles(QString::fromUtf8(*edited)).value(key) == path;
}

XemuFiles xemuFiles(const InstalledEmulator &xemu, const Places &places)
{
    static const QList<QPair<QString, QString>> needed{{u"bootrom_path"_s, u"MCPX Boot ROM"_s},
                                                       {u"flashrom_path"_s, u"Flash ROM (BIOS)"_s},
                                                       {u"hdd_path"_s, u"Hard disk image"_s}};
    XemuFiles files;
    QFile settings(xemuSettingsFile(xemu, places));
    files.hasSettings = settings.open(QFile::ReadOnly);
    const QByteArray toml = files.hasSettings ? settings.read(largestSettings) : QByteArray();
    files.named = xemuSystemFiles(QString::fromUtf8(toml));
    std::optional<QMap<QString, QString>> copies; // looked for only when something is missing
    for (const auto &[key, label] : needed) {
        const QString path = files.named.value(key);
        if (!path.isEmpty() && QFileInfo(path).isFile()) continue;
        if (!copies) copies = copiesIn(emulatorFolders(xemu, places).data);
        const QString copy = copies->value(key);
        if (!copy.isEmpty() && files.hasSettings && canEnter(toml, key, copy))
            files.toEnter.insert(key, copy);
        else
            files.missing += label;
        if (!copy.isEmpty() && !files.hasSettings) files.waiting += QFileInfo(copy).fileName();
    }
    return files;
}
