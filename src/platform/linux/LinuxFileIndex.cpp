#include "platform/linux/LinuxServices.h"
#include "platform/linux/NameSearch.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto longestQuestion = 5s;
static constexpr qsizetype longestAnswer = 16 * 1024 * 1024;

/// What a child process prints within the limits; nothing when it did not end by itself in time.
static QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s); // its idea of case must not depend on the user's language
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments, QProcess::ReadOnly);
    const QDeadlineTimer deadline(longestQuestion);
    QByteArray output;
    while (output.size() < longestAnswer && process.waitForReadyRead(int(deadline.remainingTime())))
        output += process.readAll();
    const bool tooLong = output.size() >= longestAnswer;
    if (process.state() == QProcess::NotRunning || (!tooLong && process.waitForFinished(int(deadline.remainingTime()))))
        return output + process.readAll();
    process.kill();
    process.waitForFinished(1000);
    return {};
}

namespace {

class LinuxFileIndex final : public FileIndex {
public:
    LinuxFileIndex(const Places &places, const QString &database) : m_places(places), m_database(database) { }

    QStringList named(const QString &name, const QStringList &folders) const override;
    QStringList beginningWith(const QString &prefix, const QString &suffix) const override;

private:
    QStringList ask(const QStringList &options, const QString &pattern) const;

    Places m_places;
    QString m_database;
};

}

/// Existing paths from plocate.
QStringList LinuxFileIndex::ask(const QStringList &options, const QString &pattern) const
{
    const QString program = QStandardPaths::findExecutable(u"plocate"_s, m_places.programDirs);
    if (program.isEmpty()) return {};
    QStringList arguments = options + QStringList{u"--basename"_s, u"--null"_s, u"--limit"_s, u"10000"_s};
    if (!m_database.isEmpty()) arguments += {u"--database"_s, m_database};
    arguments += {u"--"_s, pattern};
    QStringList found;
    for (const QByteArray &path : outputOf(program, arguments).split('\0')) {
        const QString name = QFile::decodeName(path);
        if (!name.isEmpty() && QFileInfo::exists(name) && !isDiscarded(name, m_places)) found += name;
    }
    found.removeDuplicates();
    return found;
}

QStringList LinuxFileIndex::named(const QString &name, const QStringList &folders) const
{
    if (name.isEmpty() || name == "."_L1 || name == ".."_L1 || name.contains(u'/') || name.contains(QChar())) return {};
    const QStringList found = ask({}, exactPattern(name));
    return found.isEmpty() ? searchFolders(name, folders, m_places) : found;
}

QStringList LinuxFileIndex::beginningWith(const QString &prefix, const QString &suffix) const
{
    if ((prefix + suffix).isEmpty() || (prefix + suffix).contains(QChar())) return {};
    QStringList found = ask({u"--ignore-case"_s}, literalPattern(prefix) + u'*' + literalPattern(suffix));
    found.removeIf([](const QString &path) { return !QFileInfo(path).isFile(); });
    return found;
}

std::unique_ptr<FileIndex> makeFileIndex(const Places &places, const QString &database)
{
    return std::make_unique<LinuxFileIndex>(places, database);
}
