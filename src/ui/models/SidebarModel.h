#pragma once

#include "catalog/Console.h"
#include "library/LibraryStore.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

class Translator;

/// The rows of the Games screen's sidebar: all games, favorites, the statuses, and the consoles that have games, in the
/// order of the catalog; each with its number of games. Headings are rows of their own.
class SidebarModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
public:
    enum Role {
        Heading = Qt::UserRole + 1, ///< true: a title above the rows that follow, not to be chosen
        Filter, ///< `GameFilter` as text; empty for a heading
        Text, ///< translated
        CountText, ///< the number of games in digits
        Icon, ///< name of a drawing; empty: none
        Dot, ///< colour role of a dot; empty: none
        ShortName, ///< console's short label; empty: none
    };

    SidebarModel(const LibraryStore &library, const Translator &translator, Host host, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE int rowOf(const QString &filter) const; ///< -1: no such row
    Q_INVOKABLE QString filterAt(int row) const;
    /// The next row in that direction (1 or -1) that can be chosen; the same row at the end of the list.
    Q_INVOKABLE int nextRow(int row, int direction) const;

private:
    struct Row {
        bool heading = false;
        QString filter;
        QString text; ///< in English; a console's name
        QString icon;
        QString dot;
        QString shortName;
        int count = 0;
    };

    void recount();
    void setCount(int row, int count);
    Row consoleRow(const Console &console, int count) const;

    const LibraryStore &m_library;
    const Translator &m_translator;
    const Host m_host;
    QList<Row> m_rows;
};
