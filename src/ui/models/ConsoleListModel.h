#pragma once

#include "catalog/Console.h"
#include "catalog/Era.h"
#include "ui/models/TileLayout.h"

#include <QAbstractListModel>
#include <QHash>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

class InstalledEmulators;
class LibraryStore;
class Preferences;
class Translator;

/// The Consoles screen: the catalog as its filters leave it, in catalog order or grouped by maker, and where each tile
/// stands for the number of columns that the screen has room for. Remembers "With my games" and "By maker".
class ConsoleListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(int count READ count NOTIFY listChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY listChanged)
    Q_PROPERTY(QString noMatchText READ noMatchText NOTIFY listChanged)
    Q_PROPERTY(QStringList eraTexts READ eraTexts CONSTANT)
    Q_PROPERTY(int era READ era WRITE setEra NOTIFY eraChanged)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(bool onlyMine READ onlyMine WRITE setOnlyMine NOTIFY onlyMineChanged)
    Q_PROPERTY(bool byMaker READ byMaker WRITE setByMaker NOTIFY byMakerChanged)
    Q_PROPERTY(int columns READ columns WRITE setColumns NOTIFY columnsChanged)
    Q_PROPERTY(int lines READ lines NOTIFY listChanged)
    Q_PROPERTY(QStringList groupTitles READ groupTitles NOTIFY listChanged)
    Q_PROPERTY(QList<int> groupSizes READ groupSizes NOTIFY listChanged)
    Q_PROPERTY(QList<int> groupLines READ groupLines NOTIFY listChanged)
public:
    enum Role {
        ConsoleID = Qt::UserRole + 1,
        Name,
        ShortName,
        Detail, ///< "Nintendo, 1990"
        GamesText, ///< the number of games in digits; empty for none
        StatusText, ///< translated; empty while nobody has looked
        StatusDot, ///< colour role
        Spoken, ///< by screen readers: name, maker, year, whether it is a handheld, state
        Faded, ///< there is no way to play it
        Handheld,
        Column,
        Line, ///< lines of tiles above it
        Group, ///< headings above it, less one
    };

    ConsoleListModel(const LibraryStore &library, const InstalledEmulators &emulators, Preferences &preferences,
                     const Translator &translator, Host host, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int count() const { return int(m_rows.size()); }
    QString countText() const; ///< "38 consoles"
    QString noMatchText() const; ///< why nothing is shown
    QStringList eraTexts() const;
    int era() const; ///< index into `eraTexts`
    void setEra(int era);
    QString query() const { return m_query; }
    void setQuery(const QString &query);
    bool onlyMine() const { return m_onlyMine; }
    void setOnlyMine(bool only);
    bool byMaker() const { return m_byMaker; }
    void setByMaker(bool grouped);
    int columns() const { return m_layout.columns; }
    void setColumns(int columns);
    int lines() const { return lineCount(m_layout); }
    QStringList groupTitles() const; ///< empty unless grouped by maker
    QList<int> groupSizes() const { return m_layout.groups; }
    QList<int> groupLines() const; ///< lines of tiles above each group

    Q_INVOKABLE void showAll(); ///< takes back every filter
    Q_INVOKABLE QString consoleAt(int row) const; ///< empty outside the list
    Q_INVOKABLE int rowOf(const QString &consoleID) const; ///< -1: not shown

signals:
    void listChanged();
    void eraChanged();
    void queryChanged();
    void onlyMineChanged();
    void byMakerChanged();
    void columnsChanged();

private:
    bool isShown(const Console &console) const;
    void relist(); ///< resets the rows
    void recount(); ///< the library changed
    void regroup();
    void restate(); ///< the state of every emulator may be another now

    const LibraryStore &m_library;
    const InstalledEmulators &m_emulators;
    Preferences &m_preferences;
    const Translator &m_translator;
    const Host m_host;
    Era m_era = Era::all;
    QString m_query;
    bool m_onlyMine;
    bool m_byMaker;
    QHash<QString, int> m_games; ///< by console
    QList<const Console *> m_rows;
    TileLayout m_layout;
};
