// Builds the services, the stores and the window, and connects them.
#include "GameSession.h"
#include "app/AppLanguage.h"
#include "app/AppState.h"
#include "app/CommandLine.h"
#include "app/CommandRunner.h"
#include "app/Log.h"
#include "app/PreferenceMigration.h"
#include "app/Translator.h"
#include "emulators/bios/BiosFiles.h"
#include "emulators/finding/EmulatorFinder.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/launch/EmulatorLauncher.h"
#include "emulators/patches/FramePatches.h"
#include "emulators/settings/EmulatorChanges.h"
#include "library/LibraryStore.h"
#include "platform/Endpoints.h"
#include "platform/Preferences.h"
#include "platform/RequestChannel.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/QuitSignals.h"
#include "play/ControllerInput.h"
#include "play/overlay/GuideOverlay.h"
#include "play/shots/ScreenshotStore.h"
#include "ui/window/Fonts.h"
#include "ui/window/VelkoWindow.h"
#include "ui/window/WindowShell.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickWindow>
#include <QTimer>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr int wrongUsage = 2;
constexpr int askLater = 75; ///< the owner can't open a window now and will end soon; between two calls only

void write(FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fflush(stream);
}

/// The terminal that this process was started from.
struct TerminalReply final : Reply {
    std::function<void(int)> finished;

    explicit TerminalReply(std::function<void(int)> whenFinished) : finished(std::move(whenFinished)) { }
    void print(const QString &text) override { write(stdout, text); }
    void printError(const QString &text) override { write(stderr, text); }
    void finish(int exitStatus) override { finished(exitStatus); }
};

/// For measurements.
void tellFrame(const QString &which)
{
    if (qEnvironmentVariableIsSet("VELKO_FIRST_FRAME")) write(stdout, which);
}

bool isForWindow(const Command &command)
{
    return command.kind == Command::Kind::openWindow || command.kind == Command::Kind::openBigPicture;
}

/// Hands the request to the owner of the library and passes its answers on.
int askOwner(RequestChannel &channel, const QStringList &arguments)
{
    ReplyHandler handler;
    handler.print = [](const QString &text) { write(stdout, text); };
    handler.printError = [](const QString &text) { write(stderr, text); };
    // exit() works only once the event loop runs, and answers come from it.
    handler.finished = [](int exitStatus) { QCoreApplication::exit(exitStatus); };
    handler.lost = [] {
        write(stderr, u"The running Velko doesn't answer. End it, then try again.\n"_s);
        QCoreApplication::exit(1);
    };
    channel.ask({arguments, QDir::currentPath()}, std::move(handler));
    return QCoreApplication::exec();
}

/// Everything there is while Velko runs: services, then stores, then the window, which is built when it is first
/// wanted.
class Program {
public:
    /// `shell`: the window that is shown already and waits for its content, if any.
    Program(const Places &places, Preferences &preferences, RequestChannel &channel, std::unique_ptr<Tasks> tasks,
            std::unique_ptr<WindowShell> shell)
        : m_places(places), m_tasks(std::move(tasks)), m_preferences(preferences), m_shell(std::move(shell)),
          m_translator(chooseLanguage(preferences.get(preference::appLanguage), QLocale::system().uiLanguages()),
                       places.host),
          m_emulators(places, *m_workspace, *m_index, preferences, *m_tasks),
          m_changes(places, *m_clock, *m_tasks, *m_processes),
          m_patches(places, m_endpoints, m_emulators, *m_http, *m_clock, *m_tasks),
          m_launcher(places, preferences, *m_workspace, *m_processes, *m_clock, *m_tasks, m_emulators, m_changes,
                     [this] { return session(); }),
          m_library(places, preferences, *m_clock, *m_tasks, *m_index, *m_workspace, *m_processes, m_launcher),
          m_bios(places, m_emulators, preferences, *m_workspace, *m_tasks, m_changes),
          m_commands(places, m_library, m_emulators.finder(), preferences, m_bios, *m_tasks, m_translator)
    {
        m_state.setProperty("language", code(m_translator.language()));
        m_launcher.setPatches(&m_patches);
        connectController();
        QObject::connect(
            &channel, &RequestChannel::requested, &m_commands,
            [this](const Request &request, const std::shared_ptr<Reply> &reply) { serve(request, reply); });
        QObject::connect(
            &m_library, &LibraryStore::gameEnded, &m_commands, [this] { endWhenIdle(); }, Qt::QueuedConnection);
        QObject::connect(&m_library, &LibraryStore::launchingChanged, &m_commands, [this] { games(); });
    }

    /// What this process was started for. It ends when that is done and nothing else is going on.
    void serveTerminal(const QStringList &arguments)
    {
        serve({arguments, QDir::currentPath()}, std::make_shared<TerminalReply>([this](int exitStatus) {
                  m_exitStatus = exitStatus;
                  endWhenIdle();
              }));
    }

    void serve(const Request &request, const std::shared_ptr<Reply> &reply)
    {
        const auto command = parseCommandLine(request.arguments);
        if (!command) {
            reply->printError(m_translator.message(command.failure()) + u'\n');
            return reply->finish(wrongUsage);
        }
        const QString pad = command.value().virtualPad;
        const auto attached =
            pad.isEmpty() ? Result<void>() : m_gamepads->attachVirtual(QDir(request.workingFolder).filePath(pad));
        if (!attached) {
            reply->printError(m_translator.message(attached.failure()) + u'\n');
            return reply->finish(1);
        }
        if (isForWindow(command.value())) {
            showWindow(command.value(), *reply);
        } else {
            m_commands.run(command.value(), request.workingFolder, reply);
        }
    }

private:
    /// The surfaces put their own callbacks in; here is what all of them share.
    void connectController()
    {
        m_controller.isActive = [] { return QGuiApplication::focusWindow() != nullptr; };
        m_controller.activate = [this] {
            if (m_window) m_window->raise();
        };
        m_controller.hidePointer = [this] {
            if (m_window) m_window->hidePointer();
        };
    }

    void showWindow(const Command &command, Reply &reply)
    {
        if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance())) return reply.finish(askLater);
        const bool shown = m_shell && m_shell->isVisible(); // raised again, it would take the focus from elsewhere
        if (!m_window && !buildWindow()) {
            reply.printError(
                m_translator.fill(u"The window can't be built. “%@” says why; ./run installs what may be missing.\n"_s,
                                  {m_places.logFile()}));
            return reply.finish(1);
        }
        if (command.kind == Command::Kind::openBigPicture)
            reply.printError(
                m_translator.translate(u"Big Picture isn't part of this version yet: the window opens instead.\n"_s));
        if (!shown) m_window->raise();
        reply.finish(0);
    }

    bool buildWindow()
    {
        m_window = std::make_unique<VelkoWindow>(
            WindowParts{m_state, m_library, m_screenshots, m_emulators, m_bios, m_changes, m_preferences, m_translator,
                        *m_clock, *m_tasks, *m_workspace, m_places, m_controller, &m_patches, m_endpoints},
            std::move(m_shell));
        if (!m_window->load()) {
            m_window.reset();
            return false;
        }
        QQuickWindow *window = m_window->window();
        QObject::connect(
            window, &QWindow::visibleChanged, &m_commands, [this] { endWhenIdle(); }, Qt::QueuedConnection);
        // What is installed is looked up after the frame with the games, which does not wait for it.
        QObject::connect(
            window, &QQuickWindow::frameSwapped, &m_emulators,
            [this] {
                m_emulators.refresh();
                m_gamepads->start();
                games();
                tellFrame(u"content frame\n"_s);
            },
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
        return true;
    }

    GameSession &games()
    {
        if (m_games) return *m_games;
        const VelkoFront front{
            .show = [this] { bringForward(); },
            .returnTo =
                [this] {
                    if (m_window && m_window->window()->isVisible()) bringForward();
                },
            .isActive = [] { return QGuiApplication::focusWindow() != nullptr; },
            .isFullScreen = [this] { return m_window && m_window->window()->visibility() == QWindow::FullScreen; },
            .panelIsShown = [this] { return m_games && m_games->panelIsShown(); },
        };
        const GameSessionParts parts{m_places,     *m_clock,   *m_tasks,      *m_workspace,
                                     *m_processes, *m_sockets, m_preferences, m_translator,
                                     m_emulators,  m_library,  m_screenshots, m_controller};
        m_games = std::make_unique<GameSession>(parts, front);
        m_games->onChanged([this] { endWhenIdle(); });
        return *m_games;
    }

    /// The main window, also over another program's.
    void bringForward()
    {
        if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance())) return;
        if (!m_window && !buildWindow()) return;
        m_window->raise();
        m_games->activate(m_window->window()->winId());
    }

    /// A closed window does not end the time of a game that runs.
    void endWhenIdle()
    {
        QMetaObject::invokeMethod(
            &m_commands,
            [this] {
                const bool windowShown = m_window && m_window->window() && m_window->window()->isVisible();
                const bool playing = !m_library.running().isEmpty() || (m_games && m_games->isEnding());
                if (windowShown || playing || m_commands.isBusy() || m_library.launching()) return;
                QCoreApplication::exit(m_exitStatus);
            },
            Qt::QueuedConnection);
    }

    Session session()
    {
        Session session;
        m_gamepads->start(); // they may be wanted for the first time: no window was opened
        for (const Pad &pad : m_gamepads->pads())
            session.controllers += pad.name;
        session.displays = std::max(games().displays(), 1);
        session.wayland = m_places.waylandSession && qEnvironmentVariableIsSet("DISPLAY");
        return session;
    }

    const Places m_places;
    const Endpoints m_endpoints = endpointsFrom(qEnvironmentVariable("VELKO_ENDPOINTS"));
    const std::unique_ptr<Clock> m_clock = makeClock();
    const std::unique_ptr<Workspace> m_workspace = makeWorkspace(m_places);
    const std::unique_ptr<ProcessControl> m_processes = makeProcessControl();
    const std::unique_ptr<Trash> m_trash = makeTrash();
    const std::unique_ptr<FileIndex> m_index = makeFileIndex(m_places);
    const std::unique_ptr<LocalSockets> m_sockets = makeLocalSockets();
    const std::unique_ptr<Http> m_http = makeHttp(*m_clock);
    const std::unique_ptr<Gamepads> m_gamepads = makeGamepads(*m_clock);
    const std::unique_ptr<Tasks> m_tasks; ///< waits for its work, which uses the services above, when it goes
    Preferences &m_preferences;
    std::unique_ptr<WindowShell> m_shell; ///< until the window takes it over
    Translator m_translator;
    AppState m_state;
    InstalledEmulators m_emulators;
    EmulatorChanges m_changes;
    FramePatches m_patches;
    EmulatorLauncher m_launcher;
    LibraryStore m_library;
    BiosFiles m_bios;
    ScreenshotStore m_screenshots{m_places, *m_tasks, *m_trash, m_library};
    CommandRunner m_commands;
    ControllerInput m_controller{*m_gamepads, *m_clock};
    std::unique_ptr<VelkoWindow> m_window;
    std::unique_ptr<GameSession> m_games; ///< from the first frame, or the first game, on
    int m_exitStatus = 0;
};

/// A window needs a display, and so does a game. Other commands are quicker without.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv, const Command &command, const Places &places)
{
    const bool wantsDisplay = isForWindow(command) || command.kind == Command::Kind::play;
    if (!wantsDisplay || !places.displayPresent) return std::make_unique<QCoreApplication>(argc, argv);
    // On Wayland nobody may put a window over a game's, nor give it the keyboard; on XWayland Velko may. What it starts
    // chooses for itself.
    const bool chosen = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!chosen && qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    if (!chosen) qunsetenv("QT_QPA_PLATFORM");
    QGuiApplication::setDesktopFileName(u"velko"_s);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return application;
}

/// Requests that come before there is a program to serve them.
class EarlyRequests {
public:
    explicit EarlyRequests(RequestChannel &channel)
        : m_connection(QObject::connect(&channel, &RequestChannel::requested, &channel,
                                        [this](const Request &request, const std::shared_ptr<Reply> &reply) {
                                            m_waiting += {request, reply};
                                        }))
    { }

    void passTo(Program &program)
    {
        QObject::disconnect(m_connection);
        for (const auto &[request, reply] : std::exchange(m_waiting, {}))
            program.serve(request, reply);
    }

private:
    QList<std::pair<Request, std::shared_ptr<Reply>>> m_waiting;
    QMetaObject::Connection m_connection;
};

/// Shows the window without its content, which is built when this frame is drawn: a moment that costs nothing, since
/// the display server works in it. A window that isn't drawn, behind another or on a slow display, is not waited for.
/// Nothing: the user wants the program to end.
std::unique_ptr<WindowShell> showShell(const Places &places)
{
    static constexpr qint64 emptyList = 2;
    static constexpr int goOn = -1;
    auto shell = std::make_unique<WindowShell>();
    QEventLoop loop;
    static constexpr auto once = Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection);
    QObject::connect(
        shell.get(), &QQuickWindow::frameSwapped, shell.get(), [] { tellFrame(u"first frame\n"_s); }, once);
    QObject::connect(
        shell.get(), &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(goOn); }, once);
    QTimer::singleShot(250ms, &loop, [&loop] { loop.exit(goOn); });
    const bool games = QFileInfo(places.libraryFile()).size() > emptyList;
    shell->showBlocks(games ? WindowShell::Waiting::forGames : WindowShell::Waiting::forAnything);
    const bool goesOn = loop.exec() == goOn && shell->isVisible();
    return goesOn ? std::move(shell) : nullptr;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(u"Velko"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VELKO_VERSION));
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QFile::decodeName(argv[i]);
    const auto command = parseCommandLine(arguments);
    if (!command) {
        write(stderr, english(command.failure()) + u'\n');
        return wrongUsage;
    }
    if (command.value().kind == Command::Kind::help) return write(stdout, usage()), 0;
    if (command.value().kind == Command::Kind::version) return write(stdout, u"Velko " VELKO_VERSION "\n"_s), 0;

    const Places places = linuxPlaces(QDir::homePath(), QProcessEnvironment::systemEnvironment());
    if (isForWindow(command.value()) && !places.displayPresent) {
        write(stderr, u"There is no display here. Start Velko from a desktop session, or see “velko --help”.\n"_s);
        return 1;
    }
    const auto application = makeApplication(argc, argv, command.value(), places);
    const auto signals_ = quitOnSignals();
    const auto clock = makeClock();
    const auto channel = makeRequestChannel(places);
    while (!channel->claim()) {
        const int exitStatus = askOwner(*channel, arguments);
        if (exitStatus != askLater) return exitStatus;
        const Timer again = clock->after(200ms, [] { QCoreApplication::quit(); });
        QCoreApplication::exec();
    }

    EarlyRequests early(*channel);
    logTo(places.logFile());
    Preferences preferences(places.preferencesFile());
    migrateLegacyPreferences(places, preferences);
    auto tasks = makeTasks();
    std::unique_ptr<WindowShell> shell;
    if (isForWindow(command.value())) {
        shell = showShell(places);
        if (!shell) return 0;
        readFonts(*tasks); // not sooner: it would take a processor from the display server, which draws that frame
    }
    Program program(places, preferences, *channel, std::move(tasks), std::move(shell));
    program.serveTerminal(arguments);
    early.passTo(program);
    return QCoreApplication::exec();
}
