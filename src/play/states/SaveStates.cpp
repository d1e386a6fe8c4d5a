#include "play/states/SaveStates.h"

#include "emulators/finding/InstalledEmulators.h"
#include "library/LibraryStore.h"
#include "platform/Accessibility.h"
#include "platform/Keys.h"
#include "platform/ProcessControl.h"
#include "platform/Tasks.h"
#include "platform/Windows.h"
#include "play/states/StateTalk.h"
#include "play/supervision/GameWindow.h"
#include "play/supervision/MenuCommand.h"

#include <QFileInfo>
#include <QPointer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto lookEvery = 100ms;
static constexpr auto createdWithin = 2s;
static constexpr auto completeWithin = 20s; // a state of many megabytes on a slow disk
static constexpr auto inFrontWithin = 1s;

// An emulator may open its window before it can load: its menu entry is switched off until the game runs.
static constexpr int roundsAtLaunch = 6;
static constexpr auto betweenRounds = 2s;

static const QString savedSymbol = u"square.and.arrow.down.fill"_s;
static const QString loadedSymbol = u"clock.arrow.circlepath"_s;
static const QString warning = u"exclamationmark.triangle.fill"_s;
static const QString couldNotGoOn = u"Couldn't load the save state: use Load state in the menu"_s;

SaveStates::SaveStates(const StateReach &reach, LibraryStore &library, const InstalledEmulators &emulators,
                       QObject *parent)
    : QObject(parent), m_reach(reach), m_library(library), m_emulators(emulators)
{
    connect(&library, &LibraryStore::gameEnded, this, [this](const QString &id) {
        if (m_command && m_command->game.gameID == id) m_command.reset();
    });
}

SaveStates::~SaveStates() = default;

/// The name by which xemu keeps a game's state in the disk that all games share.
static QString snapshotOf(const RunningGame &game)
{
    return u"velko-"_s + game.gameID.toLower();
}

SaveStatePolicy SaveStates::policy(const RunningGame &game)
{
    const QString engine = game.engine;
    const bool mayBeBound = m_reach.places.host == Host::linux && (engine == "ppsspp"_L1 || engine == "flycast"_L1);
    if (mayBeBound && !m_keysBound.contains(engine)) {
        m_keysBound.insert(engine, false);
        const StateQuestion question{engine, {}, m_emulators.copies(engine)};
        m_reach.tasks.run(
            this, [question, places = m_reach.places] { return stateFacts(question, places).keysBound; },
            [this, engine](bool bound) {
                if (!bound) return;
                m_keysBound.insert(engine, true);
                emit policyChanged();
            });
    }
    return saveStatePolicy(engine, m_reach.places.host, m_keysBound.value(engine));
}

void SaveStates::save(const RunningGame &game)
{
    begin(game, StateCommand::save, false);
}

void SaveStates::load(const RunningGame &game)
{
    begin(game, StateCommand::load, false);
}

void SaveStates::continueFromState(const RunningGame &game)
{
    if (!m_library.resumes(game.gameID)) return;
    if (!loadsStateAtStart(game.engine, m_reach.places.host)) return begin(game, StateCommand::load, true);
    const GameEntry *entry = m_library.game(game.gameID);
    m_reach.tasks.run(
        this, [path = entry ? entry->statePath.value_or(QString()) : QString()] { return QFileInfo(path).isFile(); },
        [this](bool wasThere) {
            if (!wasThere) emit finished({couldNotGoOn, {}}, warning);
        });
}

void SaveStates::begin(const RunningGame &game, StateCommand what, bool atLaunch)
{
    if (m_command) return;
    m_command = std::make_unique<Command>();
    m_command->game = game;
    m_command->what = what;
    m_command->atLaunch = atLaunch;
    const GameEntry *entry = m_library.game(game.gameID);
    const StateQuestion question{game.engine, entry ? entry->path : QString(), m_emulators.copies(game.engine)};
    m_reach.tasks.run(
        this, [question, places = m_reach.places] { return stateFacts(question, places); },
        [this, token = ++m_token](const StateFacts &facts) {
            if (wants(token)) start(facts);
        });
}

void SaveStates::start(const StateFacts &facts)
{
    Command &command = *m_command;
    const QString &engine = command.game.engine;
    const Host host = m_reach.places.host;
    const SaveStatePolicy policy = saveStatePolicy(engine, host, facts.keysBound);
    if (!policy.acts()) return finish(policy.explanation, {});
    command.facts = facts;
    const GameEntry *entry = m_library.game(command.game.gameID);
    const bool knowsStates = !facts.places.isEmpty() && entry;
    if (command.what == StateCommand::load && knowsStates && statesOf(facts.files, engine, entry->path).isEmpty())
        return finish({u"There is no save state of “%@” yet."_s, {command.game.title}}, warning);
    tryAllWays();
}

void SaveStates::tryAllWays()
{
    Command &command = *m_command;
    command.pids = m_reach.processes.tree(command.game.pid);
    command.ways = stateWays(command.game.engine, m_reach.places.host, command.facts.keysBound);
    tryNextWay();
}

void SaveStates::tryNextWay()
{
    if (m_command->ways.isEmpty()) return fail();
    switch (m_command->ways.takeFirst()) {
    case StateWay::interface:
        return askInterface();
    case StateWay::key:
        if (keysBesideMenus(m_command->game.engine, m_reach.places.host) && !m_command->menusOutOfReach
            && !m_command->showsNoMenus)
            return asked(false); // a menu that lacks the command, or has it switched off, knows better
        return pressKey();
    case StateWay::menu:
        return searchMenu();
    }
}

void SaveStates::askInterface()
{
    const auto talk = [game = m_command->game, what = m_command->what, pids = m_command->pids,
                       address = m_command->facts.address, &sockets = m_reach.sockets] {
        if (game.engine == "pcsx2"_L1) return talkToPine(sockets, address, pids, what);
        if (game.engine == "xemu"_L1) return talkToQmp(sockets, address, pids, what, snapshotOf(game));
        return talkToRetroArch(sockets, address, what);
    };
    m_reach.tasks.run(this, talk, [this, token = m_token](bool reached) {
        if (wants(token)) asked(reached);
    });
}

void SaveStates::pressKey()
{
    const auto &facts = m_command->facts;
    const auto window = findGameWindow(m_reach.windows.windowsOf(m_command->pids));
    if (!window || !(m_command->what == StateCommand::save ? facts.save : facts.load)) return asked(false);
    m_command->window = window->id;
    m_command->end = m_reach.clock.awake() + inFrontWithin;
    m_reach.windows.activate(window->id);
    waitForWindow();
}

/// The key goes to whatever is in front.
void SaveStates::waitForWindow()
{
    Command &command = *m_command;
    const auto active = m_reach.windows.activeWindow();
    if (active && active->id == command.window) {
        command.timer.reset();
        const auto &facts = command.facts;
        return asked(m_reach.keys.press(command.what == StateCommand::save ? *facts.save : *facts.load));
    }
    if (m_reach.clock.awake() >= command.end) return asked(false);
    if (!command.timer) command.timer = m_reach.clock.every(20ms, [this] { waitForWindow(); });
}

void SaveStates::searchMenu()
{
    if (!m_reach.accessibility.isAvailable()) {
        m_command->menusOutOfReach = true;
        return asked(false);
    }
    m_reach.accessibility.menu(m_command->pids, menusToOpen(m_command->what, m_command->game.engine),
                               [this, alive = QPointer(this), token = m_token](const QList<MenuEntry> &entries) {
                                   if (alive && wants(token)) pressEntry(entries);
                               });
}

void SaveStates::pressEntry(const QList<MenuEntry> &entries)
{
    Command &command = *m_command;
    // At a start the menus may only be late, and a key that comes too early would count as a state that was loaded.
    command.showsNoMenus = entries.isEmpty() && !command.atLaunch;
    const auto entry = findMenuCommand(entries, stateTitles(command.what, command.game.engine, m_reach.places.host));
    if (!entry) return asked(false);
    m_reach.accessibility.press(*entry, [this, alive = QPointer(this), token = m_token](bool pressed) {
        if (alive && wants(token)) asked(pressed);
    });
}

void SaveStates::asked(bool reached)
{
    Command &command = *m_command;
    command.timer.reset();
    if (!reached) return tryNextWay();
    command.reached = true;
    if (command.what == StateCommand::load) return succeed();
    command.growing.reset();
    command.end = m_reach.clock.awake() + createdWithin;
    command.timer = m_reach.clock.every(lookEvery, [this] { look(); });
}

void SaveStates::look()
{
    if (m_command->looking) return;
    m_command->looking = true;
    m_reach.tasks.run(
        this, [places = m_command->facts.places] { return stateFiles(places); },
        [this, token = m_token](const QList<StateFile> &now) {
            if (!wants(token)) return;
            m_command->looking = false;
            if (m_command->timer) looked(now);
        });
}

/// The state is there once two looks see the same.
void SaveStates::looked(const QList<StateFile> &now)
{
    Command &command = *m_command;
    const auto changed = changedState(command.facts.files, now);
    if (changed && changed == command.growing) return succeed();
    if (changed && !command.growing) command.end += completeWithin;
    command.growing = changed;
    if (m_reach.clock.awake() < command.end) return;
    command.timer.reset();
    tryNextWay();
}

void SaveStates::succeed()
{
    const Command &command = *m_command;
    if (command.what == StateCommand::save) {
        m_library.stateSaved(command.game.gameID, command.growing->path);
        return finish({u"State saved"_s, {}}, savedSymbol);
    }
    finish({command.atLaunch ? u"Save state loaded"_s : u"State loaded"_s, {}}, loadedSymbol);
}

void SaveStates::fail()
{
    Command &command = *m_command;
    const auto ways = stateWays(command.game.engine, m_reach.places.host, command.facts.keysBound);
    const bool hopeless = command.menusOutOfReach && ways == QList{StateWay::menu};
    if (command.atLaunch && !hopeless && command.rounds < roundsAtLaunch) {
        ++command.rounds;
        command.timer = m_reach.clock.after(betweenRounds, [this] { tryAllWays(); });
        return;
    }
    const QString name = command.game.name;
    const bool closed = command.menusOutOfReach && !command.reached;
    if (command.atLaunch) {
        return finish(
            {closed ? u"Allow Velko in Accessibility to load your save state automatically."_s : couldNotGoOn, {}},
            warning);
    }
    const bool byMenu =
        saveStatePolicy(command.game.engine, m_reach.places.host).kind == SaveStatePolicy::Kind::menuSearch;
    if (closed && byMenu) {
        return finish({u"Allow Velko in System Settings → Privacy & Security → Accessibility, then try again."_s, {}},
                      warning);
    }
    if (command.what == StateCommand::load || (byMenu && !command.reached))
        return finish({u"No save state command found in %@"_s, {name}}, warning);
    finish({u"%@ didn't create the save state. Check its save state shortcuts."_s, {name}}, warning);
}

void SaveStates::finish(const Message &toast, const QString &symbol)
{
    m_command.reset();
    emit finished(toast, symbol);
}
