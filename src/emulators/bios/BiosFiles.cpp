#include "emulators/bios/BiosFiles.h"

#include "emulators/finding/InstalledEmulators.h"
#include "emulators/launch/FlatpakAccess.h"
#include "emulators/settings/EmulatorChanges.h"
#include "platform/Preferences.h"
#include "platform/Tasks.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The copies as the last look knows them, else by a search. In the background.
struct CopySearch {
    EmulatorFinder finder;
    EmulatorChoices choices;
    QHash<QString, InstalledEmulator> known; ///< by console

    std::optional<InstalledEmulator> operator()(const Console &console) const
    {
        if (const auto copy = known.constFind(console.id); copy != known.constEnd()) return *copy;
        return finder.forConsole(console, choices);
    }
};

struct Installed {
    BiosReport report;
    std::optional<InstalledEmulator> rpcs3; ///< present: it must install the file itself
};

struct InstalledDrop {
    QList<Installed> files;
    ChangeNotes notes;
};

Installed installOne(const QString &consoleID, const QString &file, const CopySearch &copyFor, const Places &places,
                     ChangeNotes &notes)
{
    const QString wanted = consoleID.isEmpty() ? identifyBios(file).consoleID : consoleID;
    const Console *console = consoleWithID(wanted, places.host);
    if (!console || !console->bios) {
        const QString name = QFileInfo(file).fileName();
        if (!QFileInfo::exists(file)) return {{false, {u"File not found: %@"_s, {file}}, {}, {}}, {}};
        return {{false,
                 {u"Velko can't tell which console “%@” is for. Drop it on the console's page instead."_s, {name}},
                 {},
                 {}},
                {}};
    }
    const auto copy = copyFor(*console);
    if (console->bios->dest.kind == BiosDest::Kind::folder)
        return {installBios(*console, file, copy, places, notes), {}};
    return {{false, {u"Install RPCS3 first."_s, {}}, {}, console->id}, copy};
}

StartRequest firmwareStart(const InstalledEmulator &rpcs3, const QString &file, const Places &places)
{
    StartRequest request{rpcs3.command, {}, places.home, {}};
    if (rpcs3.kind == ApplicationKind::flatpak) {
        const QString access = flatpakAccess(rpcs3.emulatorID, file, false, places.home);
        const qsizetype run = request.command.indexOf("run"_L1);
        if (!access.isEmpty()) request.command.insert(run + 1, access);
    }
    request.command += {u"--installfw"_s, file};
    return request;
}
}

BiosFiles::BiosFiles(const Places &places, const InstalledEmulators &emulators, const Preferences &preferences,
                     Workspace &workspace, Tasks &tasks, EmulatorChanges &changes, QObject *parent)
    : QObject(parent), m_places(places), m_emulators(emulators), m_preferences(preferences), m_workspace(workspace),
      m_tasks(tasks), m_changes(changes)
{ }

std::optional<BiosState> BiosFiles::state(const QString &consoleID) const
{
    return m_cards.value(consoleID).state;
}

QList<BiosReport> BiosFiles::reports(const QString &consoleID) const
{
    return m_cards.value(consoleID).reports;
}

bool BiosFiles::installing(const QString &consoleID) const
{
    return m_cards.value(consoleID).drops > 0;
}

static CopySearch searchOf(const InstalledEmulators &emulators, const Preferences &preferences, Host host)
{
    CopySearch search{emulators.finder(), emulatorChoices(preferences, host), {}};
    for (const Console &console : consoles(host)) {
        if (const auto copy = emulators.stillReadyFor(console.id)) search.known.insert(console.id, copy->emulator);
    }
    return search;
}

void BiosFiles::look(const QString &consoleID)
{
    const Console *console = consoleWithID(consoleID, m_places.host);
    if (!console) return;
    const int token = ++m_cards[consoleID].look;
    m_tasks.run(
        this,
        [console, search = searchOf(m_emulators, m_preferences, m_places.host), places = m_places] {
            return biosState(*console, console->bios ? search(*console) : std::nullopt, places);
        },
        [this, consoleID, token](const BiosState &state) {
            Card &card = m_cards[consoleID];
            if (card.look != token || card.state == state) return;
            card.state = state;
            emit changed(consoleID);
        });
}

void BiosFiles::install(const QString &consoleID, const QStringList &files)
{
    if (files.isEmpty()) return;
    ++m_cards[consoleID].drops;
    emit changed(consoleID);
    begin({consoleID, files, [this, consoleID](const QList<BiosReport> &reports) {
               Card &card = m_cards[consoleID];
               card.reports = reports;
               --card.drops;
               emit changed(consoleID);
               look(consoleID);
           }});
}

void BiosFiles::installAnywhere(const QStringList &files, std::function<void(QList<BiosReport>)> done)
{
    begin({{}, files, std::move(done)});
}

void BiosFiles::begin(Drop drop)
{
    m_waiting.push_back(std::move(drop));
    next();
}

void BiosFiles::next()
{
    if (m_busy || m_waiting.empty()) return;
    m_busy = true;
    Drop drop = std::move(m_waiting.front());
    m_waiting.pop_front();
    auto work = [consoleID = drop.consoleID, files = drop.files,
                 search = searchOf(m_emulators, m_preferences, m_places.host), places = m_places,
                 notes = m_changes.notes()] {
        InstalledDrop all{{}, notes};
        for (const QString &file : files)
            all.files += installOne(consoleID, file, search, places, all.notes);
        return all;
    };
    // Moved, not copied: whoever waits for `done` may watch for its end.
    m_tasks.run(this, std::move(work), [this, drop = std::move(drop)](const InstalledDrop &all) {
        m_changes.record(all.notes);
        QList<BiosReport> reports;
        for (qsizetype i = 0; i < all.files.size(); ++i)
            reports += withFirmwareStarted(all.files[i].report, drop.files[i], all.files[i].rpcs3);
        m_busy = false;
        drop.done(reports);
        next();
    });
}

BiosReport BiosFiles::withFirmwareStarted(BiosReport report, const QString &file,
                                          const std::optional<InstalledEmulator> &copy)
{
    if (!copy) return report;
    const auto pid = m_workspace.start(firmwareStart(*copy, file, m_places));
    report.installed = bool(pid);
    report.message = pid ? Message{u"RPCS3 is installing the firmware… follow its window."_s, {}} : pid.failure();
    return report;
}
