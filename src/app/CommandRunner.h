#pragma once

#include "app/CommandLine.h"
#include "app/CommandOutput.h"
#include "platform/Places.h"

#include <QObject>
#include <memory>

class EmulatorFinder;
class FileIndex;
class LibraryStore;
class Preferences;
class Tasks;
class Translator;

/// Carries out the commands of the command line on the stores. Main thread only; what it is given outlives it. Several
/// commands may be under way at once.
class CommandRunner : public QObject {
    Q_OBJECT
public:
    CommandRunner(const Places &places, LibraryStore &library, const EmulatorFinder &finder, const FileIndex &index,
                  const Preferences &preferences, Tasks &tasks, const Translator &translator,
                  QObject *parent = nullptr);

    /// Relative paths among the operands count from `workingFolder`. The two window commands are not for here.
    void run(const Command &command, const QString &workingFolder, std::shared_ptr<CommandOutput> output);

private:
    using Output = std::shared_ptr<CommandOutput>;

    void add(const QStringList &paths, const Output &output);
    void scan(const QStringList &folders, const Output &output);
    void list(bool json, const Output &output);
    void play(const QString &word, const Output &output);
    void emulators(bool json, const Output &output);
    void doctor(const Output &output);
    void fail(const Output &output, const Message &why) const;

    Places m_places;
    LibraryStore &m_library;
    const EmulatorFinder &m_finder;
    const FileIndex &m_index;
    const Preferences &m_preferences;
    Tasks &m_tasks;
    const Translator &m_translator;
};
