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
    Q_PROPERTY(bool far MEMBER m_far NOTIFY farChanged) ///< the last move was longer than what is seen at once
public:
    using QObject::QObject;

    /// A key with its `Qt::KeyboardModifiers` and the text that it types. False: it is not for this grid, as an arrow
    /// that leads out of it.
    Q_INVOKABLE bool press(int key, int modifiers, const QString &text);

signals:
    void changed();
    void farChanged();
    void moved(int tile);
    void upOut(); ///< up from the first line; without a listener the key is passed on
    void opened(); ///< Return or Enter
    void favoriteToggled(); ///< F
    void typed(const QString &text); ///< the beginning of a search

private:
    bool move(Move move);
    bool leaveUpwards();
    TileLayout layout() const;

    QList<int> m_groups;
    int m_columns = 1;
    int m_page = 1;
    int m_current = -1;
    bool m_far = false;
};
