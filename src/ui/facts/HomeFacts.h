#pragma once

#include "ui/facts/GameFacts.h"
#include "ui/models/ShelfModel.h"

/// What the Home screen shows: the game played last, the week, the shelves. Works only while `active`.
class HomeFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(bool active MEMBER m_active WRITE setActive NOTIFY activeChanged)
    Q_PROPERTY(bool hasGames READ hasGames NOTIFY changed)
    Q_PROPERTY(QString heroTitle READ heroTitle NOTIFY changed)
    Q_PROPERTY(GameFacts *hero READ hero CONSTANT)
    Q_PROPERTY(ShelfModel *recent READ recent CONSTANT)
    Q_PROPERTY(QString recentTitle READ recentTitle NOTIFY changed)
    Q_PROPERTY(ShelfModel *favorites READ favorites CONSTANT)
    Q_PROPERTY(QString folders READ folders NOTIFY foldersChanged)
    Q_PROPERTY(QVariantList week READ week NOTIFY changed)
    Q_PROPERTY(QString weekTime READ weekTime NOTIFY changed)
public:
    HomeFacts(const GameFacts::Sources &sources, const Places &places, QObject *parent = nullptr);

    void setActive(bool active);
    bool hasGames() const { return m_library.count() > 0; }
    GameFacts *hero() { return &m_hero; } ///< the game played last, else the one added last
    QString heroTitle() const { return m_hero.title(); }
    ShelfModel *recent() { return &m_recent; }
    QString recentTitle() const { return m_recentTitle; }
    ShelfModel *favorites() { return &m_favorites; }
    QString folders() const; ///< those that are scanned, one in each line, as people read them
    QVariantList week() const { return m_week; } ///< the last seven days for `Bars`
    QString weekTime() const { return m_weekTime; }

signals:
    void activeChanged();
    void changed();
    void foldersChanged();

private:
    void update();

    const Places &m_places;
    const LibraryStore &m_library;
    const Translator &m_translator;
    const Clock &m_clock;
    GameFacts m_hero;
    ShelfModel m_recent;
    ShelfModel m_favorites;
    bool m_active = false;
    QString m_recentTitle;
    QVariantList m_week;
    QString m_weekTime;
};
