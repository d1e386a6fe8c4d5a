#pragma once

#include "catalog/Console.h"
#include "library/LibraryStore.h"
#include "ui/models/GameFilter.h"
#include "ui/models/GameSort.h"

#include <QAbstractListModel>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <vector>

class Translator;

/// The games that one screen shows: those that its filter and search admit, in its order. Follows the library change by
/// change, so that a view keeps its place; only a new filter, search or order begins anew. What it is given outlives
/// it.
class GameListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY countChanged)
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    Q_PROPERTY(QString sort READ sort WRITE setSort NOTIFY sortChanged)
    Q_PROPERTY(QString sortText READ sortText NOTIFY sortChanged)
    Q_PROPERTY(QString heading READ heading NOTIFY filterChanged)
    Q_PROPERTY(bool mixed READ mixed NOTIFY filterChanged)
    Q_PROPERTY(QString emptyTitle READ emptyTitle NOTIFY emptyChanged)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY emptyChanged)
    Q_PROPERTY(QString emptyIcon READ emptyIcon NOTIFY emptyChanged)
    Q_PROPERTY(bool narrowed READ narrowed NOTIFY emptyChanged)
public:
    enum Role {
        GameID = Qt::UserRole + 1,
        Title,
        ConsoleID,
        ConsoleName,
        ConsoleShort,
        CoverSource, ///< what "image://cover/" stands before; changes when the picture does
        Favorite,
        Status, ///< translated; empty: none
        Running,
        PlayTimeText,
        Family,
        Spoken, ///< by screen readers: title, console, status
        HeightRatio, ///< of the cover: height over width
    };

    GameListModel(const LibraryStore &library, const Translator &translator, Host host, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int count() const { return int(m_rows.size()); }
    QString countText() const; ///< the count in digits
    QString filter() const { return toText(m_filter); }
    void setFilter(const QString &filter); ///< `GameFilter` as text
    QString search() const { return m_search; }
    void setSearch(const QString &search); ///< words, all of which stand in the title or the console's name
    QString sort() const { return name(m_sort); }
    void setSort(const QString &sort);
    QString sortText() const; ///< translated
    QString heading() const; ///< what the filter shows, translated
    bool mixed() const { return m_filter.consoleID.isEmpty(); } ///< games of several consoles stand side by side
    QString emptyTitle() const; ///< why nothing is shown, translated
    QString emptyText() const; ///< what to do about it, translated
    QString emptyIcon() const; ///< name of a drawing
    bool narrowed() const { return !m_words.isEmpty() || m_filter != GameFilter(); } ///< by filter or search

    Q_INVOKABLE QString gameAt(int row) const; ///< identifier; empty outside the list
    Q_INVOKABLE int rowOf(const QString &gameID) const; ///< -1: not shown

signals:
    void countChanged();
    void filterChanged();
    void searchChanged();
    void sortChanged();
    void emptyChanged();

private:
    /// What searching and sorting need to know about one game, worked out once.
    struct Facts {
        QString searchText; ///< search form of title and console name
        qsizetype titleLength = 0; ///< how much of it is the title
        const Console *console = nullptr; ///< null: not in the catalog
        double number = 0;
    };

    const GameEntry *entryAt(int row) const;
    Facts factsOf(const GameEntry &game) const;
    bool before(int a, int b) const; ///< of two places in the library
    bool admitsGame(int index) const;
    void rebuild(); ///< everything from the library
    void resort();
    void refilter(); ///< resets the rows
    void fillRows();
    void takeIn(int first, int count);
    void drop(int index);
    void update(int index);
    void insertRow(int index);
    void removeRow(int row);
    void placeRow(int row); ///< where it belongs now
    void announceRunning();
    void announceCount(int before);

    const LibraryStore &m_library;
    const Translator &m_translator;
    const Host m_host;
    GameFilter m_filter;
    QString m_search;
    QStringList m_words; ///< of the search, in search form
    GameSort m_sort = GameSort::lastPlayed;
    std::vector<Facts> m_facts; ///< by place in the library
    std::vector<int> m_order; ///< every game's place in the library, in the order of the list
    QList<int> m_rows; ///< those that are shown; -1: removed, about to leave
    QSet<QString> m_running;
};
