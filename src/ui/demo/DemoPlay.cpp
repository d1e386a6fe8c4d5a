#include "ui/demo/DemoPlay.h"

#include "app/Translator.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "platform/Tasks.h"
#include "play/ControllerInput.h"
#include "play/GameFreezer.h"
#include "play/overlay/GuideOverlay.h"
#include "play/shots/Screenshots.h"
#include "play/states/SaveStates.h"
#include "play/supervision/GameSupervisor.h"
#include "play/supervision/PlacementLog.h"
#include "ui/overlay/OverlayWindows.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeGamepads.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalSockets.h"
#include "fakes/FakeProcessControl.h"
#include "fakes/FakeScreenCapture.h"
#include "fakes/FakeWindows.h"
#include "fakes/FakeWorkspace.h"

#include <QGuiApplication>
#include <QPainter>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr qint64 gamePid = 4000;
static constexpr quint64 gameWindow = 1;

struct DemoPlay::Stage {
    explicit Stage(const House &given) : house(given), display(QGuiApplication::primaryScreen()->geometry())
    {
        windows.connected = {{QGuiApplication::primaryScreen()->name(), display, true}};
        windows.composed = true;
    }

    House house;
    QRect display;
    FakeWindows windows;
    FakeKeys keys;
    FakeAccessibility accessibility;
    FakeScreenCapture capture;
    FakeGamepads pads;
    PlacementLog log{house.places, house.clock, house.tasks};
    GameReach reach{Host::linux, house.clock, windows, accessibility, keys, house.processes, log};
    ControllerInput controller{pads, house.clock};
    GameFreezer freezer{reach, house.library};
    GameSupervisor supervisor{reach, house.library, house.workspace, house.preferences};
    FakeLocalSockets sockets;
    SaveStates states{{house.places, house.clock, house.tasks, windows, keys, accessibility, house.processes, sockets},
                      house.library,
                      house.emulators};
    Screenshots screenshots{house.places, house.clock, house.tasks, windows, capture, house.processes};
    GuideOverlay guide{{reach, house.library, house.preferences, controller, freezer, supervisor, states, screenshots,
                        capture, house.emulators},
                       {}};
    OverlayWindows surfaces{{guide, house.library, windows, house.clock, house.tasks, house.translator, house.places}};

    void send(const QList<PadEvent> &events)
    {
        for (const PadEvent event : events)
            guide.handle(event);
    }
    void ask()
    {
        windows.windows += AppWindow{.id = 2,
                                     .pid = gamePid,
                                     .geometry = {800, 480, 320, 120},
                                     .kind = WindowKind::dialog,
                                     .transientFor = gameWindow,
                                     .modal = true};
        windows.becomeActive(2);
    }
};

DemoPlay::DemoPlay(const House &house) : m_stage(std::make_unique<Stage>(house)) { }

DemoPlay::~DemoPlay() = default;

void DemoPlay::show(const QString &gameID, const QString &engine, const QString &scene, const QImage &picture)
{
    Stage &stage = *m_stage;
    const GameEntry *game = stage.house.library.game(gameID);
    if (!game) return;
    stage.pads.plugIn(u"Xbox Wireless Controller"_s);
    stage.capture.picture = picture.convertToFormat(QImage::Format_RGB32).scaled(stage.display.size());
    stage.capture.windows[gameWindow] = stage.capture.picture;
    stage.house.processes.processes[gamePid] = {gamePid, 1, engine};
    stage.house.processes.stubborn = {gamePid};
    stage.windows.windows = {{.id = gameWindow, .pid = gamePid, .geometry = stage.display, .fullScreen = true}};
    stage.windows.becomeActive(gameWindow);
    const RunningGame running = runningGame(gameID, game->title, {gamePid, engine, engine, {}}, Host::linux,
                                            stage.house.clock.now().addSecs(-10));

    const bool starts = scene == u"notice" || scene == u"question";
    if (scene == u"question") {
        stage.windows.windows.clear();
        stage.ask();
    }
    stage.supervisor.startWatching(running, {.fullScreenWanted = starts});
    stage.guide.begin(running);
    if (!starts) stage.guide.notices().hide();

    using enum PadEvent;
    const QList<PadEvent> toSettings{down, down, down, down, down, confirm};
    const QList<PadEvent> toQuit{up, down, down, down, down, down, down, down, confirm};
    if (QStringList{u"overlay"_s, u"info"_s, u"settings"_s, u"controller"_s, u"confirm"_s, u"closing"_s,
                    u"quit-question"_s, u"explanation"_s}
            .contains(scene))
        stage.guide.toggle();
    if (scene == u"info") stage.send({down, down, down, down, confirm});
    if (scene == u"settings") stage.send(toSettings);
    if (scene == u"controller") stage.send(toSettings + QList{down, down, down, down, down, confirm});
    if (scene == u"confirm") stage.send(toQuit);
    if (scene == u"closing" || scene == u"quit-question") stage.send(toQuit + QList{confirm});
    if (scene == u"quit-question") QTimer::singleShot(300, &stage.guide, [&stage] { stage.ask(); });
    if (scene == u"screenshot") emit stage.screenshots.taken({u"Taking a screenshot…"_s, {}});
    if (scene == u"state") emit stage.states.finished({u"State saved"_s, {}}, u"square.and.arrow.down.fill"_s);
    if (scene == u"trouble")
        emit stage.states.finished({u"Couldn't load the save state: use Load state in the menu"_s, {}},
                                   u"exclamationmark.triangle.fill"_s);
    if (scene == u"hint") {
        for (int press = 0; press < 3; ++press)
            stage.guide.anyInput();
    }
    if (scene == u"curtain") emit stage.supervisor.curtainWanted(stage.windows.connected.first().name);
}

QImage DemoPlay::grab() const
{
    QImage image = m_stage->capture.picture;
    QPainter painter(&image);
    for (QQuickWindow *window : {m_stage->surfaces.panel(), m_stage->surfaces.curtain(), m_stage->surfaces.notice()}) {
        if (window && window->isVisible())
            painter.drawImage(window->position() - m_stage->display.topLeft(), window->grabWindow());
    }
    return image;
}
