#pragma once

#include "play/shots/ScreenshotStore.h"
#include "ui/shots/ShotListModel.h"

#include <QHash>

/// The games that have screenshots, that of the newest one first.
class ShotGroupModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the screenshots")
public:
    enum Role { GroupID = Qt::UserRole + 1, Title, GameID, Shots };

    explicit ShotGroupModel(const QLocale &locale, QObject *parent = nullptr);

    void show(const QList<ScreenshotGroup> &groups);
    ShotListModel *shotsOf(const QString &groupID) const; ///< null: there are none any more
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    /// What a row shows itself; its shots have a model of their own.
    struct Row {
        QString id;
        QString title;
        QString game;
        bool operator==(const Row &) const = default;
    };

    const QLocale m_locale;
    QList<Row> m_rows;
    QHash<QString, ShotListModel *> m_shots;
};
