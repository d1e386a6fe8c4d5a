#pragma once

#include <QAbstractListModel>
#include <qqmlregistration.h>

/// One row of the panel over a game.
struct OverlayRow {
    enum class Kind { action, choice, toggle, fact };
    Kind kind = Kind::action;
    QString icon;
    QString title;
    QString detail;
    QString value; ///< of a choice or a fact
    bool on = false; ///< of a toggle
    bool available = true; ///< false: shown as off, with the reason as its detail
    bool grave = false; ///< waits for a second press
    bool operator==(const OverlayRow &) const = default;
};

/// The rows of the page that the panel shows.
class OverlayRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the overlay")
public:
    using QAbstractListModel::QAbstractListModel;
    void set(const QList<OverlayRow> &rows); ///< rows that stay are only changed
    const QList<OverlayRow> &rows() const { return m_rows; }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_rows.size()); }
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { Kind = Qt::UserRole, Icon, Title, Detail, Value, On, Available, Grave };
    QList<OverlayRow> m_rows;
};
