#include "emulators/launch/SessionLog.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

static void keepNewest(const QString &folder, qsizetype count)
{
    const QFileInfoList logs = QDir(folder).entryInfoList({u"*.log"_s}, QDir::Files, QDir::Time); // newest first
    for (qsizetype i = count; i < logs.size(); ++i)
        QFile::remove(logs[i].filePath());
}

QString newSessionLog(const QString &logFolder, const QString &engine, const QDateTime &now)
{
    const QString folder = logFolder + u"/sessions"_s;
    QDir().mkpath(folder);
    keepNewest(folder, 19);
    const QString name = folder + u'/' + engine + u'-' + now.toString(u"yyyy-MM-dd HH.mm.ss"_s);
    QString log = name + u".log"_s;
    for (int number = 2; QFile::exists(log); ++number)
        log = name + u' ' + QString::number(number) + u".log"_s;
    // Reserves the name: programs write late, and another may start in the same second.
    QFile file(log);
    if (!file.open(QFile::NewOnly)) return {};
    return log;
}
