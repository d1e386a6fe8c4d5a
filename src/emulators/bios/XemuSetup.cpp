#include "emulators/bios/XemuSetup.h"

#include "base/TomlText.h"
#include "emulators/finding/EmulatorFolders.h"

#include <QFileInfo>
#include <QList>
#include <QPair>

using namespace Qt::StringLiterals;

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

QStringList missingXemuFiles(const QMap<QString, QString> &systemFiles)
{
    static const QList<QPair<QString, QString>> needed{{u"bootrom_path"_s, u"MCPX Boot ROM"_s},
                                                       {u"flashrom_path"_s, u"Flash ROM (BIOS)"_s},
                                                       {u"hdd_path"_s, u"Hard disk image"_s}};
    QStringList missing;
    for (const auto &[key, label] : needed) {
        const QString path = systemFiles.value(key);
        if (path.isEmpty() || !QFileInfo(path).isFile()) missing += label;
    }
    return missing;
}

QString withXemuFiles(const QString &toml, const QMap<QString, QString> &systemFiles)
{
    QByteArray edited = toml.toUtf8();
    for (const auto &[key, path] : systemFiles.asKeyValueRange()) {
        const auto next = editToml(edited, systemFilesTable, key, {tomlOfText(path)});
        if (!next) return toml;
        edited = *next;
    }
    return QString::fromUtf8(edited);
}
