#include "emulators/launch/EmulatorLauncher.h"

#include "emulators/controllers/ControllerClass.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/patches/FramePatches.h"
#include "emulators/settings/EmulatorChanges.h"
#include "emulators/settings/QualityValue.h"
#include "platform/Preferences.h"
#include "platform/ProcessControl.h"
#include "platform/Tasks.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto lookEvery = 100ms;
static constexpr auto giveUpAfter = 5s;

EmulatorLauncher::EmulatorLauncher(const Places &places, Preferences &preferences, Workspace &workspace,
                                   ProcessControl &processes, Clock &clock, Tasks &tasks,
                                   const InstalledEmulators &emulators, EmulatorChanges &changes,
                                   std::function<Session()> session, QObject *parent)
    : QObject(parent), m_places(places), m_preferences(preferences), m_workspace(workspace), m_processes(processes),
      m_clock(clock), m_tasks(tasks), m_emulators(emulators), m_changes(changes), m_session(std::move(session))
{ }

void EmulatorLauncher::launch(const LaunchRequest &request, Done done)
{
    const Order order{request, std::move(done), m_round};
    if (!m_patches || !request.settings.fps60) return prepare(order, false);
    const QPointer<EmulatorLauncher> alive(this);
    m_patches->prepare(request.consoleID, [alive, order](bool listCancelled) {
        if (alive && !alive->isCancelled(order)) alive->prepare(order, listCancelled);
    });
}

void EmulatorLauncher::cancel()
{
    ++m_round;
    m_waiting.clear();
}

void EmulatorLauncher::prepare(const Order &order, bool listCancelled)
{
    const LaunchRequest &request = order.request;
    const LaunchInput input{.request = request,
                            .known = m_emulators.stillReadyFor(request.consoleID),
                            .choices = emulatorChoices(m_preferences, m_places.host),
                            .session = m_session(),
                            .quality = defaultQuality(m_preferences.get(preference::defaultQuality)),
                            .mapsControllers = !m_preferences.contains(preference::autoXboxSetup)
                                || m_preferences.get(preference::autoXboxSetup),
                            .vblankRaised = m_preferences.get(preference::rpcs3VblankRaised),
                            .patchListCancelled = listCancelled,
                            .now = m_clock.now(),
                            .notes = m_changes.notes()};
    const auto prepare = [input, places = m_places, finder = m_emulators.finder(), &processes = m_processes] {
        return prepareLaunch(input, places, finder, processes);
    };
    m_tasks.run(this, prepare, [this, order](Result<PreparedLaunch, LaunchRefusal> prepared) {
        if (prepared && prepared.value().setUp) m_changes.record(prepared.value().setUp->notes);
        if (isCancelled(order)) return;
        if (!prepared) return order.done(prepared.failure());
        endRunning(std::move(prepared.value()), order);
    });
}

QString EmulatorLauncher::engineFor(const LaunchRequest &request) const
{
    const Console *console = consoleWithID(request.consoleID, m_places.host);
    if (console && opensItself(request.path, *console, m_places.host)) return engineOfNativeGame(*console);
    const auto emulator = m_emulators.forConsole(request.consoleID);
    return emulator ? emulator->emulatorID : QString();
}

QString EmulatorLauncher::controllerToSetUp(const LaunchRequest &request) const
{
    const QString id = engineFor(request);
    if (id.isEmpty() || controllerClass(id) != ControllerClass::manual) return {};
    if (m_session().controllers.isEmpty()) return {};
    const bool settled = m_preferences.get(preference::controllerConfigured(id))
        || m_preferences.get(preference::hideControllerNotice(id));
    return settled ? QString() : id;
}

void EmulatorLauncher::endRunning(PreparedLaunch launch, const Order &order)
{
    for (const qint64 pid : launch.running)
        m_processes.askToQuit(pid);
    m_waiting.push_back({std::move(launch), order, m_clock.awake() + giveUpAfter, nullptr});
    lookAgain(std::prev(m_waiting.end()));
}

void EmulatorLauncher::lookAgain(std::list<Waiting>::iterator waiting)
{
    waiting->launch.running.removeIf([this](qint64 pid) { return !m_processes.isAlive(pid); });
    const bool ended = waiting->launch.running.isEmpty();
    if (!ended && m_clock.awake() < waiting->giveUp) {
        if (!waiting->timer) waiting->timer = m_clock.every(lookEvery, [this, waiting] { lookAgain(waiting); });
        return;
    }
    const Waiting over = std::move(*waiting);
    m_waiting.erase(waiting);
    if (ended) return setUp(over.launch, over.order);
    const EmulatorDef *def = emulatorWithID(over.launch.plan.engine, m_places.host);
    over.order.done(Message{u"%@ is still running and doesn't close. Quit it, then play again."_s,
                            {def ? def->name : over.launch.plan.engine}});
}

void EmulatorLauncher::setUp(const PreparedLaunch &launch, const Order &order)
{
    if (!launch.setUp) return start(launch, launch.shortcomings, order.done);
    SetUpOrder files = *launch.setUp;
    files.notes = m_changes.notes();
    m_tasks.run(
        this, [files, &processes = m_processes] { return setUpEmulator(files, processes); },
        [this, launch, order](const SetUpOutcome &outcome) {
            m_changes.record(outcome.notes);
            if (outcome.vblankRate)
                m_preferences.set(preference::rpcs3VblankRaised, *outcome.vblankRate != usualVblankRate);
            if (!isCancelled(order)) start(launch, launch.shortcomings + outcome.failures, order.done);
        });
}

void EmulatorLauncher::start(const PreparedLaunch &launch, const QList<Message> &shortcomings, const Done &done)
{
    const LaunchPlan &plan = launch.plan;
    const auto pid = m_workspace.start({plan.command, plan.environment, plan.workingFolder, launch.logFile});
    if (!pid) return done(pid.failure());
    done(StartedGame{pid.value(), plan.applicationID, plan.engine, launch.logFile, shortcomings});
}
