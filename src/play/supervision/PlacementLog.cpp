#include "play/supervision/PlacementLog.h"

#include "platform/Clock.h"
#include "platform/Places.h"
#include "platform/Tasks.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <utility>

using namespace Qt::StringLiterals;

static constexpr int longestMessage = 1000; ///< names of games and windows come from outside

static void append(const QString &file, const QStringList &lines)
{
    QDir().mkpath(QFileInfo(file).path());
    QFile out(file);
    if (out.open(QFile::WriteOnly | QFile::Append)) out.write(lines.join(QString()).toUtf8());
}

static QString onOneLine(QString text)
{
    text.truncate(longestMessage);
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control) c = u' ';
    }
    return text;
}

PlacementLog::PlacementLog(const Places &places, const Clock &clock, Tasks &tasks, QObject *parent)
    : QObject(parent), m_file(places.placementLogFile()), m_clock(clock), m_tasks(tasks)
{ }

PlacementLog::~PlacementLog()
{
    if (!m_waiting.isEmpty()) append(m_file, m_waiting);
}

void PlacementLog::write(const QString &message)
{
    m_waiting += m_clock.now().toString(u"HH:mm:ss"_s) + u"  "_s + onOneLine(message) + u'\n';
    if (!m_appending) appendNext();
}

// One piece of work at a time: two would race for the end of the file.
void PlacementLog::appendNext()
{
    m_appending = !m_waiting.isEmpty();
    if (!m_appending) return;
    m_tasks.run(
        this, [file = m_file, lines = std::exchange(m_waiting, {})] { append(file, lines); }, [this] { appendNext(); });
}

QString logText(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

QString logText(const QSize &size)
{
    return u"(%1, %2)"_s.arg(size.width()).arg(size.height());
}

QString logText(const QRect &rect)
{
    return u"(%1, %2, %3, %4)"_s.arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}
