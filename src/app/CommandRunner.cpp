#include "app/CommandRunner.h"

#include "app/Doctor.h"
#include "app/GameChoice.h"
#include "app/Translator.h"
#include "emulators/bios/BiosFiles.h"
#include "emulators/finding/EmulatorFinder.h"
#include "library/LibraryFile.h"
#include "library/LibraryStore.h"
#include "library/MovedFile.h"
#include "platform/Preferences.h"
#include "platform/Tasks.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::StringLiterals;

static const Message scanUnderWay{u"A scan is under way. Try again when it is over."_s, {}};

/// A title may hold anything; on a terminal it must stay on its line and send no control sequence.
static QString onOneLine(QString text)
{
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control) c = u' ';
    }
    return text;
}

static QString kindWord(ApplicationKind kind)
{
    switch (kind) {
    case ApplicationKind::native:
        return u"native"_s;
    case ApplicationKind::appImage:
        return u"AppImage"_s;
    case ApplicationKind::flatpak:
        return u"Flatpak"_s;
    case ApplicationKind::bundle:
        return u"bundle"_s;
    }
    return {};
}

/// What only a look at the machine tells; in the background.
static DoctorFacts lookedAround(DoctorFacts facts, const QStringList &folders, const Places &places,
                                const EmulatorFinder &finder, const EmulatorChoices &choices)
{
    QDir().mkpath(facts.dataFolder);
    facts.dataFolderWritable = QFileInfo(facts.dataFolder).isWritable();
    facts.displayPresent = places.displayPresent;
    facts.fileIndexPresent = std::ranges::any_of(
        places.programDirs, [](const QString &folder) { return QFileInfo(folder + u"/plocate"_s).isExecutable(); });
    for (const QString &folder : folders) {
        if (!QFileInfo(folder).isDir()) facts.missingFolders += folder;
    }
    const auto copies = finder.allCopies(choices);
    for (auto each = copies.begin(); each != copies.end(); ++each)
        facts.installed.insert(each.key(), each->first().path);
    for (auto each = facts.gamesByConsole.keyBegin(); each != facts.gamesByConsole.keyEnd(); ++each) {
        const Console *console = consoleWithID(*each, places.host);
        if (const auto ready = console ? finder.readyFor(*console, choices) : std::nullopt)
            facts.playable.insert(*each, ready->emulator.emulatorID);
    }
    return facts;
}

static QString doctorLine(const Finding &finding, const Translator &translator)
{
    static const QHash<Finding::Grade, QString> marks{{Finding::Grade::fine, u"ok       "_s},
                                                      {Finding::Grade::advice, u"advice   "_s},
                                                      {Finding::Grade::problem, u"problem  "_s}};
    const QString remedy =
        finding.remedy.isEmpty() ? QString() : u"\n         → "_s + translator.translate(finding.remedy);
    return marks.value(finding.grade) + onOneLine(translator.message(finding.message)) + remedy + u'\n';
}

CommandRunner::CommandRunner(const Places &places, LibraryStore &library, const EmulatorFinder &finder,
                             const Preferences &preferences, BiosFiles &bios, Tasks &tasks,
                             const Translator &translator, QObject *parent)
    : QObject(parent), m_places(places), m_library(library), m_finder(finder), m_preferences(preferences), m_bios(bios),
      m_tasks(tasks), m_translator(translator)
{ }

bool CommandRunner::isBusy() const
{
    return std::ranges::any_of(m_underWay, [](const auto &reply) { return !reply.expired(); });
}

void CommandRunner::run(const Command &command, const QString &workingFolder, const std::shared_ptr<Reply> &reply)
{
    m_underWay.removeIf([](const auto &each) { return each.expired(); });
    m_underWay += reply;
    const auto paths = [&] {
        QStringList absolute;
        for (const QString &operand : command.operands)
            absolute += QDir::cleanPath(QDir(workingFolder).absoluteFilePath(operand));
        return absolute;
    };
    switch (command.kind) {
    case Command::Kind::add:
        return add(paths(), reply);
    case Command::Kind::scan:
        return scan(paths(), reply);
    case Command::Kind::list:
        return list(command.json, reply);
    case Command::Kind::play:
        return play(command.operands.value(0), reply);
    case Command::Kind::emulators:
        return emulators(command.json, reply);
    case Command::Kind::bios:
        return bios(paths(), reply);
    case Command::Kind::doctor:
        return doctor(reply);
    case Command::Kind::help:
        reply->print(usage());
        return reply->finish(0);
    case Command::Kind::version:
        reply->print(u"Velko %1\n"_s.arg(QCoreApplication::applicationVersion()));
        return reply->finish(0);
    case Command::Kind::openWindow:
    case Command::Kind::openBigPicture:
        return reply->finish(0);
    }
}

void CommandRunner::fail(const Answer &reply, const Message &why) const
{
    reply->printError(m_translator.message(why) + u'\n');
    reply->finish(1);
}

/// Answers with the report of the scan that is about to begin, when it is over. A scan of folders has done its work
/// also when it could not use every file; of files that were named one by one the user expects all.
void CommandRunner::reportScan(const Answer &reply, Remarks remarks)
{
    auto *watch = new QObject(this);
    connect(&m_library, &LibraryStore::scanReportChanged, watch, [this, reply, watch, remarks] {
        watch->deleteLater();
        const Message report = *m_library.scanReport();
        if (m_library.scanTrouble() && remarks == Remarks::areFailures) return fail(reply, report);
        reply->print(m_translator.message(report) + u'\n');
        reply->finish(0);
    });
}

void CommandRunner::add(const QStringList &paths, const Answer &reply)
{
    if (m_library.scanning()) return fail(reply, scanUnderWay);
    for (const QString &path : paths) {
        if (!QFileInfo::exists(path)) return fail(reply, {u"File not found: %@"_s, {path}});
    }
    reportScan(reply, Remarks::areFailures);
    m_library.addFiles(paths);
}

void CommandRunner::scan(const QStringList &folders, const Answer &reply)
{
    if (m_library.scanning()) return fail(reply, scanUnderWay);
    for (const QString &folder : folders) {
        if (!QFileInfo(folder).isDir()) return fail(reply, {u"“%@” is not a folder."_s, {folder}});
        if (!QFileInfo(folder).isReadable())
            return fail(reply, {u"“%@” can't be read. Give yourself the right to open it."_s, {folder}});
    }
    if (folders.isEmpty() && m_library.romFolders().isEmpty())
        return fail(reply, {u"No folder is scanned yet. Name one: velko scan DIR"_s, {}});
    reportScan(reply, Remarks::arePrinted);
    if (folders.isEmpty())
        m_library.scan({});
    else
        m_library.addFolders(folders);
}

void CommandRunner::list(bool json, const Answer &reply)
{
    QString text;
    for (const GameEntry &game : json ? QList<GameEntry>() : m_library.games())
        text += u"%1  %2  %3\n"_s.arg(game.id, game.consoleID.leftJustified(8), onOneLine(game.title));
    reply->print(json ? QString::fromUtf8(encodeLibrary(m_library.games())) + u'\n' : text);
    // The list of the games that were added since is not what was asked for.
    if (!m_library.setAsideFile().isEmpty())
        return fail(reply, {u"Your library file can't be read. Open Velko: Home offers the newest good copy."_s, {}});
    reply->finish(0);
}

void CommandRunner::play(const QString &word, const Answer &reply)
{
    const auto chosen = chooseGame(m_library.games(), word);
    if (!chosen) return fail(reply, chosen.failure());
    const QString id = chosen.value();
    const QString title = m_library.game(id)->title;
    if (m_library.running().contains(id)) return fail(reply, {u"“%@” is running already."_s, {title}});
    if (m_library.launching()) return fail(reply, {u"Another game is being started. Try again in a moment."_s, {}});

    auto *watch = new QObject(this);
    const auto failed = [this, reply, watch](const Message &why) {
        watch->deleteLater();
        fail(reply, why);
    };
    connect(&m_library, &LibraryStore::launchFailed, watch, [id, failed](const QString &game, const Message &why) {
        if (game == id) failed(why);
    });
    connect(&m_library, &LibraryStore::missingFileChanged, watch, [this, id, title, failed] {
        if (m_library.missingFile() == id) failed(missingFileMessage(title));
    });
    connect(&m_library, &LibraryStore::lastErrorChanged, watch, [this, reply] {
        if (m_library.lastError()) reply->printError(m_translator.message(*m_library.lastError()) + u'\n');
    });
    connect(&m_library, &LibraryStore::launchCancelled, watch, [id, failed](const QString &game) {
        if (game == id) failed({u"The launch was cancelled."_s, {}});
    });
    connect(&m_library, &LibraryStore::closedAtOnce, watch, [id, failed](const QString &game, const Message &why) {
        if (game == id) failed(why);
    });
    connect(&m_library, &LibraryStore::gameEnded, watch,
            [id, reply, watch](const QString &game, double, bool tooShort) {
                if (game != id || tooShort) return; // it is explained next
                watch->deleteLater();
                reply->finish(0);
            });
    m_library.launchWithoutAsking(id);
}

void CommandRunner::emulators(bool json, const Answer &reply)
{
    const EmulatorChoices choices = emulatorChoices(m_preferences, m_places.host);
    m_tasks.run(
        this,
        [finder = m_finder, host = m_places.host, choices] {
            QList<InstalledEmulator> all;
            for (const EmulatorDef &def : emulatorDefs(host))
                all += finder.copies(def, choices);
            return all;
        },
        [this, json, reply](const QList<InstalledEmulator> &all) {
            QJsonArray array;
            QString text;
            for (const InstalledEmulator &copy : all) {
                const QString name = emulatorWithID(copy.emulatorID, m_places.host)->name;
                array += QJsonObject{{u"id"_s, copy.emulatorID},
                                     {u"name"_s, name},
                                     {u"kind"_s, kindWord(copy.kind)},
                                     {u"path"_s, copy.path},
                                     {u"application"_s, copy.applicationID},
                                     {u"command"_s, QJsonArray::fromStringList(copy.command)}};
                text += u"%1  %2  %3\n"_s.arg(name.leftJustified(12), kindWord(copy.kind).leftJustified(8),
                                              onOneLine(copy.path));
            }
            if (all.isEmpty())
                text = m_translator.translate(u"No emulator is installed. “velko doctor” names what your games need."_s)
                    + u'\n';
            reply->print(json ? QString::fromUtf8(QJsonDocument(array).toJson()) : text);
            reply->finish(0);
        });
}

void CommandRunner::bios(const QStringList &files, const Answer &reply)
{
    m_bios.installAnywhere(files, [this, reply](const QList<BiosReport> &reports) {
        bool allInstalled = true;
        for (const BiosReport &report : reports) {
            QString line = onOneLine(m_translator.message(report.message)) + u'\n';
            if (report.remark) line += u"  "_s + onOneLine(m_translator.message(*report.remark)) + u'\n';
            allInstalled = allInstalled && report.installed;
            if (report.installed)
                reply->print(line);
            else
                reply->printError(line);
        }
        reply->finish(allInstalled ? 0 : 1);
    });
}

void CommandRunner::doctor(const Answer &reply)
{
    DoctorFacts facts;
    facts.host = m_places.host;
    facts.dataFolder = m_places.dataFolder();
    facts.games = m_library.count();
    facts.unreadableLibrary = m_library.setAsideFile();
    for (const GameEntry &game : m_library.games())
        ++facts.gamesByConsole[game.consoleID];
    m_tasks.run(
        this,
        [facts, folders = m_library.romFolders(), places = m_places, finder = m_finder,
         choices = emulatorChoices(m_preferences, m_places.host)] {
            return examine(lookedAround(facts, folders, places, finder, choices));
        },
        [this, reply](const QList<Finding> &findings) {
            bool problem = false;
            for (const Finding &finding : findings) {
                problem = problem || finding.grade == Finding::Grade::problem;
                reply->print(doctorLine(finding, m_translator));
            }
            reply->finish(problem ? 1 : 0);
        });
}
