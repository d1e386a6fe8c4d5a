#pragma once

#include "play/shots/ScreenshotFiles.h"

#include <QAbstractListModel>
#include <QLocale>
#include <qqmlregistration.h>

/// Screenshots side by side, the newest first.
class ShotListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the screenshots")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    enum Role { Url = Qt::UserRole + 1, Source, Title, DateText };

    explicit ShotListModel(const QLocale &locale, QObject *parent = nullptr);

    void show(const QList<Screenshot> &shots, const QString &title);
    const QList<Screenshot> &shots() const { return m_shots; }
    int count() const { return int(m_shots.size()); }
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    const QLocale m_locale;
    QString m_title;
    QList<Screenshot> m_shots;
};

/// "9 Nov 2026, 21:05".
QString shotDate(const QDateTime &date, const QLocale &locale);
