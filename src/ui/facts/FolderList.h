#pragma once

#include "platform/Places.h"

#include <QAbstractListModel>
#include <qqmlregistration.h>

class Tasks;
class Translator;

/// One place to begin looking for a folder.
struct FolderPlace {
    QString name; ///< in English; a medium's own name
    QString path;
    QString icon;
    bool operator==(const FolderPlace &) const = default;
};

/// The home folder, the download folder, connected media and the whole computer. Asks the disk.
QList<FolderPlace> folderPlaces(const Places &places);

/// The folders inside one folder, for choosing one, or its files as well, for choosing some of those. Reads the disk in
/// the background; a folder that cannot be read is shown as empty, with the reason.
class FolderList : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(QString folder READ folder NOTIFY folderChanged)
    Q_PROPERTY(QString folderName READ folderName NOTIFY folderChanged)
    Q_PROPERTY(QString parentFolder READ parentFolder NOTIFY folderChanged)
    Q_PROPERTY(QVariantList places READ places NOTIFY placesChanged)
    Q_PROPERTY(bool loading READ loading NOTIFY loadingChanged)
    Q_PROPERTY(int startRow READ startRow NOTIFY listed)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY loadingChanged)
    Q_PROPERTY(QStringList marked READ marked NOTIFY markedChanged)
public:
    enum Role { Name = Qt::UserRole + 1, Path, IsFile, Marked };

    FolderList(const Places &places, Tasks &tasks, const Translator &translator, QObject *parent = nullptr);

    QString folder() const { return m_folder; }
    QString folderName() const; ///< "~/Games" below the home folder
    QString parentFolder() const; ///< empty at the top
    QVariantList places() const; ///< name, path and icon of each
    bool loading() const { return m_loading; }
    QString emptyText() const; ///< why nothing is listed
    QStringList marked() const { return m_marked; } ///< paths of the files that were chosen, in the user's order
    int startRow() const; ///< where to begin: at the folder that was just left, else at the first

    Q_INVOKABLE void begin(bool withFiles); ///< at the home folder, or where files were chosen last
    Q_INVOKABLE void toggle(const QString &file); ///< marks it, or takes the mark away
    Q_INVOKABLE void open(const QString &folder); ///< empty: the home folder; reads the places anew as well
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void folderChanged();
    void placesChanged();
    void loadingChanged();
    void listed(); ///< the folder that was opened
    void markedChanged();

private:
    struct Listing {
        QStringList folders;
        QStringList files;
        bool readable = true;
        QList<FolderPlace> places;
    };
    static Listing read(const QString &folder, bool withFiles, const Places &places);
    QString pathOf(int row) const;
    void show(const Listing &listing);

    const Places m_places;
    Tasks &m_tasks;
    const Translator &m_translator;
    QString m_folder;
    QString m_left; ///< the folder that was open before
    bool m_withFiles = false;
    QString m_lastOfFiles; ///< the folder in which files were chosen last
    QStringList m_names; ///< folders, then files
    int m_folderCount = 0;
    QStringList m_marked;
    QList<FolderPlace> m_placeList;
    bool m_loading = false;
    bool m_readable = true;
    int m_token = 0; ///< a listing that comes back with an older one is dropped
};
