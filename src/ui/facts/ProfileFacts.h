#pragma once

#include "ui/facts/GameFacts.h"

/// A game of the list of those that were played longest.
struct MostPlayed {
    QString gameID;
    double seconds = 0;
    double share = 0; ///< of the longest, 0 to 1
    bool operator==(const MostPlayed &) const = default;
};
QList<MostPlayed> mostPlayed(const QList<GameEntry> &games, int length); ///< the longest first; games never played: not

/// What the Profile screen says about the time spent playing. Works only while `active`.
class ProfileFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(bool active MEMBER m_active WRITE setActive NOTIFY activeChanged)
    Q_PROPERTY(QVariantList figures READ figures NOTIFY changed)
    Q_PROPERTY(QVariantList statuses READ statuses NOTIFY changed)
    Q_PROPERTY(QVariantList week READ week NOTIFY changed)
    Q_PROPERTY(QString weekTime READ weekTime NOTIFY changed)
    Q_PROPERTY(QVariantList mostPlayed READ mostPlayed NOTIFY changed)
public:
    ProfileFacts(const LibraryStore &library, const Translator &translator, const Clock &clock,
                 QObject *parent = nullptr);

    void setActive(bool active);
    QVariantList figures() const { return m_figures; } ///< each { value, text }
    QVariantList statuses() const { return m_statuses; } ///< each { text, dot }; those that no game has are left out
    QVariantList week() const { return m_week; } ///< the last seven days for `Bars`
    QString weekTime() const { return m_weekTime; }
    QVariantList mostPlayed() const
    {
        return m_mostPlayed;
    } ///< each { gameID, title, cover, consoleID, ratio, time, share }

signals:
    void activeChanged();
    void changed();

private:
    void update();

    const LibraryStore &m_library;
    const Translator &m_translator;
    const Clock &m_clock;
    bool m_active = false;
    QVariantList m_figures, m_statuses, m_week, m_mostPlayed;
    QString m_weekTime;
};
