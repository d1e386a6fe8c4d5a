#include "emulators/settings/EmulatorChanges.h"

#include "emulators/finding/RunningEmulators.h"
#include "emulators/settings/ConfigFile.h"
#include "platform/Tasks.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto lookEvery = 2s;
static constexpr qint64 largest = 16 * 1024 * 1024;

Message sentence(const PutBackReport &report, const QString &emulatorName)
{
    if (!report.failures.isEmpty()) return report.failures.first();
    const QString done = QString::number(report.done.size());
    if (report.changedSince.isEmpty())
        return {u"%@ has your own settings again (%ld put back)."_s, {emulatorName, done}};
    return {u"%@ has your own settings again: %ld put back, %ld left alone because you have changed them since."_s,
            {emulatorName, done, QString::number(report.changedSince.size())}};
}

PutBackReport putBackInFiles(const QList<EmulatorChange> &changes)
{
    PutBackReport report;
    QHash<QString, QList<EmulatorChange>> byFile;
    for (const EmulatorChange &change : changes)
        byFile[change.file] += change;
    for (const auto &[file, here] : byFile.asKeyValueRange()) {
        QList<EmulatorChange> changedSince;
        const ConfigFileEdit edit = editConfigFile(
            file, [&here, &changedSince](const QByteArray &text) { return putBack(text, here, changedSince); });
        if (edit.outcome == ConfigFileEdit::Outcome::failed) {
            report.failures += edit.why;
            continue;
        }
        report.changedSince += changedSince;
        for (const EmulatorChange &change : here) {
            if (!changedSince.contains(change)) report.done += change;
        }
    }
    return report;
}

EmulatorChanges::EmulatorChanges(const Places &places, Clock &clock, Tasks &tasks, const ProcessControl &processes,
                                 QObject *parent)
    : QObject(parent), m_places(places), m_clock(clock), m_tasks(tasks), m_processes(processes)
{ }

const ChangeJournal &EmulatorChanges::journal() const
{
    if (!m_read) read();
    return m_journal;
}

QList<EmulatorChange> EmulatorChanges::of(const QString &emulatorID) const
{
    QList<EmulatorChange> changes = journal().changes;
    changes.removeIf([&emulatorID](const EmulatorChange &change) { return change.emulatorID != emulatorID; });
    return changes;
}

/// A file that does not decode is set aside, since it is all that knows what the user had.
void EmulatorChanges::read() const
{
    m_read = true;
    QFile stored(file());
    if (!stored.open(QFile::ReadOnly)) return;
    const QByteArray json = stored.read(largest);
    if (QJsonDocument::fromJson(json).isObject())
        m_journal = decodeJournal(json);
    else
        stored.rename(file() + u".unreadable"_s);
}

/// What cannot be written now is written with the next change.
void EmulatorChanges::save()
{
    QDir().mkpath(m_places.dataFolder());
    QSaveFile stored(file());
    const QByteArray json = encodeJournal(m_journal);
    if (stored.open(QFile::WriteOnly) && stored.write(json) == json.size()) stored.commit();
}

ChangeNotes EmulatorChanges::notes() const
{
    return {journal(), ReferenceDate::from(m_clock.now()), {}};
}

void EmulatorChanges::record(const ChangeNotes &notes)
{
    record(notes.added);
}

void EmulatorChanges::record(const QList<JournalUpdate> &updates)
{
    if (updates.isEmpty()) return;
    journal();
    for (const JournalUpdate &update : updates)
        apply(update, m_journal);
    save();
    emit changed();
}

void EmulatorChanges::putBack(const QString &emulatorID)
{
    if (isWaiting(emulatorID) || of(emulatorID).isEmpty()) return;
    m_waiting += emulatorID;
    emit changed();
    look();
}

void EmulatorChanges::cancelPutBack(const QString &emulatorID)
{
    if (m_waiting.removeAll(emulatorID) > 0) emit changed();
}

void EmulatorChanges::look()
{
    if (m_waiting.isEmpty()) m_timer.reset();
    if (m_looking || m_waiting.isEmpty()) return;
    m_looking = true;
    m_tasks.run(
        this, [&processes = m_processes] { return processes.running(); },
        [this](const QList<RunningProcess> &running) {
            m_looking = false;
            const QStringList waiting = m_waiting;
            for (const QString &id : waiting) {
                if (processesOf(id, m_places.host, running).isEmpty()) begin(id);
            }
            if (m_waiting.isEmpty())
                m_timer.reset();
            else if (!m_timer)
                m_timer = m_clock.every(lookEvery, [this] { look(); });
        });
}

void EmulatorChanges::begin(const QString &emulatorID)
{
    m_waiting.removeAll(emulatorID);
    m_tasks.run(
        this, [changes = of(emulatorID)] { return putBackInFiles(changes); },
        [this, emulatorID](const PutBackReport &report) {
            record({{.changed = {}, .gone = report.done + report.changedSince, .quieted = {}}});
            emit changed();
            emit putBackFinished(emulatorID, report);
        });
}
