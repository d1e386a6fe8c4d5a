#include "library/MovedFile.h"

#include "platform/FileIndex.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

MovedFile movedFile(const QString &path)
{
    // Every PlayStation 3 game has a file of this name, so the name alone would find another game.
    for (const QString &rest : {u"/PS3_GAME/USRDIR/EBOOT.BIN"_s, u"/USRDIR/EBOOT.BIN"_s}) {
        if (path.endsWith(rest, Qt::CaseInsensitive)) {
            const QString folder = path.chopped(rest.size());
            return {QFileInfo(folder).fileName(), path.mid(folder.size())};
        }
    }
    return {QFileInfo(path).fileName(), {}};
}

QStringList searchedFolders(const Places &places, const QStringList &romFolders)
{
    QStringList folders{places.home};
    folders += romFolders;
    if (places.host == Host::linux) folders += {u"/media"_s, u"/run/media"_s, u"/mnt"_s};
    folders.removeDuplicates();
    return folders;
}

bool isLeftover(const QString &path, Host host)
{
    QStringList parts{u"/Library/Caches/"_s, u"/.Trash/"_s};
    if (host == Host::linux) parts += {u"/.cache/"_s, u"/share/Trash/"_s, u"/.Trash-"_s};
    return std::any_of(parts.begin(), parts.end(), [&](const QString &part) { return path.contains(part); });
}

QStringList placesOf(const MovedFile &file, const FileIndex &index, const QStringList &folders, Host host)
{
    if (file.name.isEmpty()) return {};
    QStringList found;
    for (const QString &hit : index.named(file.name, folders)) {
        const QString place = hit + file.rest;
        if (!isLeftover(place, host) && QFileInfo::exists(place)) found += place;
    }
    return found;
}

QString spotlightQuery(const QString &fileName)
{
    QString name = fileName;
    name.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    return u"kMDItemFSName == \""_s + name + u'"';
}

QString iCloudPlaceholder(const QString &path)
{
    const qsizetype name = path.lastIndexOf(u'/') + 1;
    return path.left(name) + u'.' + path.mid(name) + u".icloud"_s;
}

std::optional<QString> iCloudFile(const QString &placeholder)
{
    const qsizetype name = placeholder.lastIndexOf(u'/') + 1;
    const QStringView file = QStringView(placeholder).mid(name);
    if (!file.startsWith(u'.') || !file.endsWith(u".icloud") || file.size() <= 8) return {};
    return QString(placeholder.left(name) + file.mid(1).chopped(7).toString());
}

Message missingFileMessage(const QString &title)
{
    return {u"“%@” isn't at its usual place anymore, and Velko couldn't find it on your Mac. It was maybe moved to an "
            "external drive, renamed or deleted."_s,
            {title}};
}
