#include "library/EarlyEnd.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString lastWords(const QString &logFile)
{
    QFile file(logFile);
    if (logFile.isEmpty() || !file.open(QFile::ReadOnly)) return {};
    file.seek(std::max<qint64>(0, file.size() - 8192));
    QString text = QString::fromUtf8(file.read(8192));
    // Terminal colours and other escape sequences go whole, so that no "[0m" stays behind.
    static const QRegularExpression escapes(u"\\x1B(\\[[0-?]*[ -/]*[@-~]|\\][^\\x07\\x1B]*\\x07?|.)"_s);
    text.remove(escapes).replace(u'\r', u'\n');
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control && c != u'\n'; });

    QStringList lines;
    for (const QString &line : text.split(u'\n')) {
        if (!line.trimmed().isEmpty()) lines += line.trimmed();
    }
    return lines.mid(std::max<qsizetype>(0, lines.size() - 5)).join(u'\n').right(600);
}

Message closedAtOnceMessage(const QString &title, const ProgramEnd &end, const QString &lastWords)
{
    if (end.signal != 0 && lastWords.isEmpty()) {
        return {u"“%@” closed at once (signal %ld) and didn't say why. Open its emulator on its own to see whether it "
                "works, then play again."_s,
                {title, QString::number(end.signal)}};
    }
    if (end.signal != 0) {
        return {u"“%@” closed at once (signal %ld). Its last words tell what to look for:\n%@"_s,
                {title, QString::number(end.signal), lastWords}};
    }
    if (lastWords.isEmpty()) {
        return {
            u"“%@” closed at once (exit status %ld) and didn't say why. Open its emulator on its own to see whether "
            "it works, then play again."_s,
            {title, QString::number(end.exitStatus)}};
    }
    return {u"“%@” closed at once (exit status %ld). Its last words tell what to look for:\n%@"_s,
            {title, QString::number(end.exitStatus), lastWords}};
}
