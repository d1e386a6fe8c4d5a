#pragma once

#include "ui/models/TileLayout.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// What the keys do in a grid of covers or tiles: it says where the focus goes, the view follows.
class GridKeys : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<int> groups MEMBER m_groups NOTIFY changed) ///< tiles in each group
    Q_PROPERTY(int columns MEMBER m_columns NOTIFY changed)
    Q_PROPERTY(int page MEMBER m_page NOTIFY changed) ///< lines that are seen at once
    Q_PROPERTY(int current MEMBER m_current NOTIFY changed) ///< -1: none
public:
    using QObject::QObject;

    /// A key with its `Qt::KeyboardModifiers` and the text that it types. False: it is not for this grid, as an arrow
    /// that leads out of it.
    Q_INVOKABLE bool press(int key, int modifiers, const QString &text);

signals:
    void changed();
    void moved(int tile);
    void opened(); ///< Return or Enter
    void favoriteToggled(); ///< F
    void typed(const QString &text); ///< the beginning of a search

private:
    bool move(Move move);
    TileLayout layout() const;

    QList<int> m_groups;
    int m_columns = 1;
    int m_page = 1;
    int m_current = -1;
};
