#include "ui/facts/FolderList.h"

#include "app/Translator.h"
#include "platform/Tasks.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QList<FolderPlace> folderPlaces(const Places &places)
{
    QList<FolderPlace> list{{u"Home"_s, places.home, u"home"_s}};
    for (const QString &name : {u"Downloads"_s, u"Games"_s}) {
        const QString path = places.home + u'/' + name;
        if (QFileInfo(path).isDir()) list += {name, path, name == u"Games" ? u"controller"_s : u"download"_s};
    }
    const QString user = QDir(places.home).dirName();
    for (const QString &media : {u"/media/"_s + user, u"/run/media/"_s + user, u"/mnt"_s}) {
        const auto names = QDir(media).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString &name : names)
            list += {name, media + u'/' + name, u"save"_s};
    }
    list += {u"Computer"_s, u"/"_s, u"display"_s};
    return list;
}

FolderList::FolderList(const Places &places, Tasks &tasks, const Translator &translator, QObject *parent)
    : QAbstractListModel(parent), m_places(places), m_tasks(tasks), m_translator(translator)
{ }

QString FolderList::folderName() const
{
    if (m_folder == m_places.home) return m_translator.translate(u"Home"_s);
    if (m_folder.startsWith(m_places.home + u'/')) return u"~"_s + m_folder.mid(m_places.home.size());
    return m_folder;
}

QString FolderList::parentFolder() const
{
    return m_folder.isEmpty() || m_folder == u"/" ? QString() : QFileInfo(m_folder).absolutePath();
}

QVariantList FolderList::places() const
{
    QVariantList list;
    for (const FolderPlace &place : m_placeList)
        list += QVariantMap{
            {u"name"_s, m_translator.translate(place.name)}, {u"path"_s, place.path}, {u"icon"_s, place.icon}};
    return list;
}

QString FolderList::emptyText() const
{
    if (m_loading || !m_names.isEmpty()) return {};
    if (!m_readable) return m_translator.translate(u"This folder can't be read. Choose another one."_s);
    return m_translator.translate(m_withFiles ? u"Nothing in here."_s : u"No folders in here. You can add this one."_s);
}

void FolderList::begin(bool withFiles)
{
    m_withFiles = withFiles;
    m_marked.clear();
    emit markedChanged();
    open(withFiles ? m_lastOfFiles : QString());
}

void FolderList::toggle(const QString &file)
{
    if (!m_marked.removeOne(file)) m_marked += file;
    m_lastOfFiles = m_folder;
    emit markedChanged();
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1), {Marked});
}

void FolderList::open(const QString &folder)
{
    m_left = m_folder;
    m_folder = folder.isEmpty() ? m_places.home : QDir::cleanPath(folder);
    m_loading = true;
    show({});
    emit folderChanged();
    m_tasks.run(
        this,
        [folder = m_folder, withFiles = m_withFiles, places = m_places] { return read(folder, withFiles, places); },
        [this, token = ++m_token](const Listing &listing) {
            if (token != m_token) return;
            m_loading = false;
            m_placeList = listing.places;
            show(listing);
            emit placesChanged();
            emit listed();
        });
}

FolderList::Listing FolderList::read(const QString &folder, bool withFiles, const Places &places)
{
    const QDir directory(folder);
    Listing listing{directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                    withFiles ? directory.entryList(QDir::Files) : QStringList(), directory.isReadable(),
                    folderPlaces(places)};
    QCollator order(QLocale(QLocale::English)); // the plain "C" locale cannot count
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(listing.folders.begin(), listing.folders.end(), order);
    std::sort(listing.files.begin(), listing.files.end(), order);
    return listing;
}

void FolderList::show(const Listing &listing)
{
    beginResetModel();
    m_names = listing.folders + listing.files;
    m_folderCount = int(listing.folders.size());
    m_readable = listing.readable;
    endResetModel();
    emit loadingChanged();
}

int FolderList::startRow() const
{
    const QFileInfo left(m_left);
    return left.absolutePath() == m_folder ? int(qMax<qsizetype>(0, m_names.indexOf(left.fileName()))) : 0;
}

int FolderList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_names.size());
}

QVariant FolderList::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) return {};
    switch (role) {
    case Name:
        return m_names[index.row()];
    case Path:
        return pathOf(index.row());
    case IsFile:
        return index.row() >= m_folderCount;
    case Marked:
        return m_marked.contains(pathOf(index.row()));
    }
    return {};
}

QString FolderList::pathOf(int row) const
{
    return m_folder.endsWith(u'/') ? m_folder + m_names[row] : m_folder + u'/' + m_names[row];
}

QHash<int, QByteArray> FolderList::roleNames() const
{
    return {{Name, "name"}, {Path, "path"}, {IsFile, "file"}, {Marked, "chosen"}};
}
