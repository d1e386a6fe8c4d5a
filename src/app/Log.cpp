#include "app/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTime>
#include <cstdio>

using namespace Qt::StringLiterals;

static FILE *logFile = nullptr;
static QtMessageHandler earlierHandler = nullptr;

// Called from any thread; stdio locks its own streams, and one call writes one whole line.
static void write(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (logFile) {
        const QByteArray line = (QTime::currentTime().toString(u"HH:mm:ss"_s) + u"  "_s + text + u'\n').toUtf8();
        std::fwrite(line.constData(), 1, size_t(line.size()), logFile);
        std::fflush(logFile);
    }
    if (earlierHandler) earlierHandler(type, context, text);
}

void logTo(const QString &file)
{
    QDir().mkpath(QFileInfo(file).path());
    if (QFileInfo(file).size() > 1024 * 1024) {
        QFile::remove(file + u".1"_s);
        QFile::rename(file, file + u".1"_s);
    }
    logFile = std::fopen(QFile::encodeName(file).constData(), "ae");
    earlierHandler = qInstallMessageHandler(write);
}
