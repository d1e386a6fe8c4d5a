#include "app/AppState.h"
#include "app/Translator.h"
#include "catalog/EmulatorDef.h"
#include "emulators/bios/BiosFiles.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/settings/EmulatorChanges.h"
#include "library/LibraryFile.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/VirtualPad.h"
#include "play/ControllerInput.h"
#include "play/shots/ScreenshotStore.h"
#include "ui/demo/DemoLibrary.h"
#include "ui/demo/DemoPlay.h"
#include "ui/demo/DemoShots.h"
#include "ui/demo/ScrollTest.h"
#include "ui/window/VelkoWindow.h"

#include "fakes/FakeFileIndex.h"
#include "fakes/FakeGamepads.h"
#include "fakes/FakeProcessControl.h"
#include "fakes/FakeTrash.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/TemporaryHome.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QQuickWindow>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Starts every game after a moment; nothing runs really.
class DemoLauncher final : public GameLauncher {
public:
    DemoLauncher(Clock &clock, FakeWorkspace &workspace) : m_clock(clock), m_workspace(workspace) { }

    void launch(const LaunchRequest &request, std::function<void(LaunchResult)> done) override
    {
        m_wait = m_clock.after(2s, [this, request, done = std::move(done)] {
            const auto pid = m_workspace.start({{request.title}, {}, {}, {}});
            done(StartedGame{pid.value(), u"demo"_s, u"pcsx2"_s, {}});
        });
    }

    void cancel() override { m_wait.reset(); }

private:
    Clock &m_clock;
    FakeWorkspace &m_workspace;
    Timer m_wait;
};

static void installEmulators(const TemporaryHome &home)
{
    for (const EmulatorDef &def : emulatorDefs(Host::linux)) {
        if (def.id == u"retroarch" || def.id == u"rpcs3") continue;
        const QString program = home.write(u"bin/"_s + def.programs.value(0, def.id));
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    }
}

static void sendKeys(QWindow *window, const QStringList &keys)
{
    for (const QString &key : keys) {
        const QKeyCombination combination = QKeySequence(key)[0];
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            const QString text = key.size() == 1 ? key.toLower() : QString();
            QKeyEvent event(type, combination.key(), combination.keyboardModifiers(), text);
            QCoreApplication::sendEvent(window, &event);
        }
        QCoreApplication::processEvents();
    }
}

/// What cannot be read as a button is left out.
static void pressButtons(FakeGamepads &pads, const QStringList &buttons)
{
    const int pad = pads.plugIn(u"Demo controller"_s);
    for (const QString &button : buttons) {
        if (const auto command = parsePadCommand("press " + button.toUtf8())) pads.tap(command->button, pad);
        QCoreApplication::processEvents();
    }
}

static int grab(VelkoWindow &window, const QString &file)
{
    const bool saved = window.window()->grabWindow().save(file);
    if (!saved) qCritical("The picture could not be written to %s.", qPrintable(file));
    return saved ? 0 : 1;
}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(u"velko-demo"_s);
    QGuiApplication::setApplicationVersion(u"0.1.0"_s);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOptions(
        {{u"size"_s, u"Size of the window."_s, u"WxH"_s, u"1920x1080"_s},
         {u"tab"_s, u"The tab to show."_s, u"name"_s, u"home"_s},
         {u"page"_s, u"The page to open: game or console."_s, u"page"_s},
         {u"game"_s, u"The game whose page is opened."_s, u"number"_s, u"1"_s},
         {u"keys"_s, u"Keys to press first, separated by blanks."_s, u"keys"_s},
         {u"pad"_s, u"Buttons of a controller to press first, separated by blanks."_s, u"buttons"_s},
         {u"screenshot"_s, u"Write a picture to this file and end."_s, u"file"_s},
         {u"wait"_s, u"Milliseconds before the picture."_s, u"ms"_s, u"900"_s},
         {u"games"_s, u"Number of games."_s, u"n"_s, u"130"_s},
         {u"scroll"_s, u"Scroll the covers, so many pixels each frame, and print the frame times."_s, u"px"_s},
         {u"play"_s,
          u"Something over a game: overlay, info, settings, controller, confirm, notice, question, closing, "
          "quit-question, screenshot, state, trouble, hint or curtain."_s,
          u"scene"_s},
         {u"engine"_s, u"The emulator of that game."_s, u"name"_s, u"pcsx2"_s},
         {u"backdrop"_s, u"A picture of that game."_s, u"file"_s},
         {u"empty"_s, u"An empty library."_s},
         {u"unreadable"_s, u"A library file that cannot be read, with a good copy."_s}});
    options.process(application);

    const TemporaryHome home;
    const Places places = home.places();
    const auto clock = makeClock();
    const auto tasks = makeTasks();
    Preferences preferences(places.preferencesFile());
    FakeFileIndex index;
    FakeWorkspace workspace;
    FakeProcessControl processes;
    DemoLauncher launcher(*clock, workspace);
    installEmulators(home);
    for (const QString &name : {u"Games/PlayStation"_s, u"Games/Game Boy"_s, u"Downloads/roms"_s, u"Documents/notes"_s})
        home.write(name + u"/readme.txt"_s);
    const QString folder = home.path() + u"/Games"_s;
    if (options.isSet(u"unreadable"_s)) {
        const QString data = QDir(home.path()).relativeFilePath(places.dataFolder());
        home.write(data + u"/library.json"_s, "[{\"id\": 12");
        home.write(data + u"/library.json.backup-2026-11-20"_s, encodeLibrary(demoGames(40, clock->now(), folder)));
    }

    AppState app;
    Translator translator(AppLanguage::english, Host::linux);
    LibraryStore library(places, preferences, *clock, *tasks, index, workspace, processes, launcher);
    if (!options.isSet(u"empty"_s) && !options.isSet(u"unreadable"_s)) {
        auto games = demoGames(options.value(u"games"_s).toInt(), clock->now(), folder);
        for (const GameEntry &game : games.mid(0, 40))
            home.write(QDir(home.path()).relativeFilePath(game.path));
        library.add(games);
        if (options.value(u"tab"_s) == u"profile")
            writeDemoShots(library.games(), clock->now(), screenshotFolder(places.pictures));
    }
    FakeTrash trash;
    ScreenshotStore screenshots(places, *tasks, trash, library);
    InstalledEmulators emulators(places, workspace, index, preferences, *tasks);
    emulators.refresh();
    app.setTabName(options.value(u"tab"_s));
    const int number = options.value(u"game"_s).toInt();
    if (options.isSet(u"play"_s) && number < library.count()) {
        DemoPlay play({places, *clock, *tasks, preferences, library, emulators, workspace, processes, translator});
        QImage picture(options.value(u"backdrop"_s));
        if (picture.isNull()) {
            picture = QImage(480, 270, QImage::Format_RGB32);
            picture.fill(QColor(0xf0, 0xf0, 0xf0));
        }
        play.show(library.games()[number].id, options.value(u"engine"_s), options.value(u"play"_s), picture);
        if (options.isSet(u"screenshot"_s))
            QTimer::singleShot(options.value(u"wait"_s).toInt(), &application, [&] {
                QCoreApplication::exit(play.grab().save(options.value(u"screenshot"_s)) ? 0 : 1);
            });
        return QGuiApplication::exec();
    }
    if (options.value(u"page"_s) == u"game" && number < library.count())
        app.setProperty("detailGame", library.games()[number].id);
    if (options.value(u"page"_s) == u"console") app.setProperty("selectedConsole", u"ps2"_s);

    EmulatorChanges changes(places, *clock, *tasks, processes);
    BiosFiles bios(places, emulators, preferences, workspace, *tasks, changes);
    FakeGamepads pads;
    ControllerInput controller(pads, *clock);
    controller.isActive = [] { return true; };
    VelkoWindow window({app, library, screenshots, emulators, bios, changes, preferences, translator, *clock, *tasks,
                        workspace, places, controller});
    if (!window.load()) return 1;
    const QStringList size = options.value(u"size"_s).split(u'x');
    window.window()->resize(size.value(0).toInt(), size.value(1).toInt());
    window.raise();
    if (options.isSet(u"keys"_s))
        QTimer::singleShot(400, window.window(),
                           [&] { sendKeys(window.window(), options.value(u"keys"_s).split(u' ')); });
    if (options.isSet(u"pad"_s))
        QTimer::singleShot(400, window.window(), [&] { pressButtons(pads, options.value(u"pad"_s).split(u' ')); });
    if (options.isSet(u"scroll"_s))
        QTimer::singleShot(1500, window.window(),
                           [&] { new ScrollTest(window.window(), options.value(u"scroll"_s).toDouble(), 300); });
    if (options.isSet(u"screenshot"_s))
        QTimer::singleShot(options.value(u"wait"_s).toInt(), window.window(),
                           [&] { QCoreApplication::exit(grab(window, options.value(u"screenshot"_s))); });
    return QGuiApplication::exec();
}
