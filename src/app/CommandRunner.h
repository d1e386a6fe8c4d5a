#pragma once

#include "app/CommandLine.h"
#include "platform/Places.h"
#include "platform/RequestChannel.h"

#include <QObject>
#include <memory>

class BiosFiles;
class EmulatorFinder;
class LibraryStore;
class Preferences;
class Tasks;
class Translator;

/// Carries out the commands of the command line on the stores. Main thread only; what it is given outlives it. Several
/// commands may be under way at once.
class CommandRunner : public QObject {
    Q_OBJECT
public:
    CommandRunner(const Places &places, LibraryStore &library, const EmulatorFinder &finder,
                  const Preferences &preferences, BiosFiles &bios, Tasks &tasks, const Translator &translator,
                  QObject *parent = nullptr);

    /// Relative paths among the operands count from `workingFolder`. Not for the commands that open a window.
    void run(const Command &command, const QString &workingFolder, const std::shared_ptr<Reply> &reply);
    bool isBusy() const; ///< whether a command is still under way

private:
    using Answer = std::shared_ptr<Reply>;

    enum class Remarks { arePrinted, areFailures };
    void reportScan(const Answer &reply, Remarks remarks);
    void add(const QStringList &paths, const Answer &reply);
    void scan(const QStringList &folders, const Answer &reply);
    void list(bool json, const Answer &reply);
    void play(const QString &word, const Answer &reply);
    void emulators(bool json, const Answer &reply);
    void bios(const QStringList &files, const Answer &reply);
    void doctor(const Answer &reply);
    void fail(const Answer &reply, const Message &why) const;

    Places m_places;
    LibraryStore &m_library;
    const EmulatorFinder &m_finder;
    const Preferences &m_preferences;
    BiosFiles &m_bios;
    Tasks &m_tasks;
    const Translator &m_translator;
    QList<std::weak_ptr<Reply>> m_underWay;
};
