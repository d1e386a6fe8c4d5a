#pragma once

#include <QObject>
#include <QRect>
#include <QStringList>

class Clock;
struct Places;
class Tasks;

/// A diary of what is done to the windows of games, for reports of trouble. Lines are appended in order, in the
/// background; what can't be written is dropped.
class PlacementLog : public QObject {
    Q_OBJECT
public:
    PlacementLog(const Places &places, const Clock &clock, Tasks &tasks, QObject *parent = nullptr);
    ~PlacementLog() override; ///< writes what is waiting

    void write(const QString &message); ///< one line: time, two spaces, message. Main thread only

private:
    void appendNext();

    QString m_file;
    const Clock &m_clock;
    Tasks &m_tasks;
    QStringList m_waiting;
    bool m_appending = false;
};

// How values stand in it.
QString logText(bool value);
QString logText(const QSize &size);
QString logText(const QRect &rect);
