#include "app/CommandRunner.h"

#include "app/Doctor.h"
#include "app/GameChoice.h"
#include "app/Translator.h"
#include "emulators/EmulatorFinder.h"
#include "library/LibraryFile.h"
#include "library/LibraryStore.h"
#include "library/PlayTimeText.h"
#include "platform/Preferences.h"
#include "platform/Tasks.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

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

CommandRunner::CommandRunner(const Places &places, LibraryStore &library, const EmulatorFinder &finder,
                             const FileIndex &index, const Preferences &preferences, Tasks &tasks,
                             const Translator &translator, QObject *parent)
    : QObject(parent), m_places(places), m_library(library), m_finder(finder), m_index(index),
      m_preferences(preferences), m_tasks(tasks), m_translator(translator)
{ }

void CommandRunner::run(const Command &command, const QString &workingFolder, std::shared_ptr<CommandOutput> output)
{
    const auto absolute = [&] {
        QStringList paths;
        for (const QString &operand : command.operands)
            paths += QDir::cleanPath(QDir(workingFolder).absoluteFilePath(operand));
        return paths;
    };
    switch (command.kind) {
    case Command::Kind::add:
        return add(absolute(), output);
    case Command::Kind::scan:
        return scan(absolute(), output);
    case Command::Kind::list:
        return list(command.json, output);
    case Command::Kind::play:
        return play(command.operands.value(0), output);
    case Command::Kind::emulators:
        return emulators(command.json, output);
    case Command::Kind::doctor:
        return doctor(output);
    case Command::Kind::help:
        output->print(usage());
        return output->finish(0);
    case Command::Kind::version:
    case Command::Kind::openWindow:
    case Command::Kind::openBigPicture:
        return output->finish(0);
    }
}

void CommandRunner::fail(const Output &output, const Message &why) const
{
    output->printError(m_translator.message(why) + u'\n');
    output->finish(1);
}

void CommandRunner::list(bool json, const Output &output)
{
    if (json) {
        output->print(QString::fromUtf8(encodeLibrary(m_library.games())) + u'\n');
        return output->finish(0);
    }
    QString text;
    for (const GameEntry &game : m_library.games())
        text +=
            u"%1  %2  %3\n"_s.arg(game.consoleID.leftJustified(8),
                                  playTimeText(game.playSeconds.value_or(0)).rightJustified(12), onOneLine(game.title));
    output->print(text);
    output->finish(0);
}

void CommandRunner::emulators(bool json, const Output &output)
{
    const EmulatorChoices choices = emulatorChoices(m_preferences, m_places.host);
    m_tasks.run(
        this,
        [this, choices] {
            QList<InstalledEmulator> all;
            for (const EmulatorDef &def : emulatorDefs(m_places.host))
                all += m_finder.copies(def, choices);
            return all;
        },
        [this, json, output](const QList<InstalledEmulator> &all) {
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
            output->print(json ? QString::fromUtf8(QJsonDocument(array).toJson()) : text);
            output->finish(0);
        });
}
