#include "CouchPlay.h"
#include "DemoGame.h"
#include "GamePicture.h"
#include "Processes.h"
#include "Waiting.h"

#include <QElapsedTimer>
#include <QProcess>
#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
// The menu's items, counted from the top.
constexpr int saveState = 1, screenshot = 3, quit = 7;

struct Way {
    const char *name;
    const char *emulator; ///< in its command line
    const char *preferences;
    const char *stateFolder; ///< below the home
    const char *statePattern;
};

class Couch : public CouchPlay, public testing::WithParamInterface<Way> { };
}

/// Not for every user, and not in every container.
static bool canMakeNamespaces()
{
    return QProcess::execute(u"unshare"_s, {u"--pid"_s, u"--fork"_s, u"--mount-proc"_s, u"true"_s}) == 0;
}

/// The whole evening with the controller alone: start, menu, save state, screenshot, quit.
TEST_P(Couch, playsSavesPhotographsAndQuits)
{
    const Way &way = GetParam();
    if (QByteArray(way.preferences).contains("boxed") && !canMakeNamespaces())
        GTEST_SKIP() << "needs the right to make a namespace";
    emulatorName = QString::fromLatin1(way.emulator);
    chooseEmulator(QByteArray(way.preferences).replace("HOME", display.home().toUtf8()));
    display.write(u"bin/boxed"_s, "#!/bin/sh\nexec unshare --pid --fork --mount-proc /usr/games/mgba-qt \"$@\"\n",
                  true);
    ASSERT_TRUE(installDemoGame(display));
    QElapsedTimer evening;
    evening.start();
    play(demoGameTitle);
    ASSERT_TRUE(waitForDemoGame(display, 30s)) << velko->errors().constData();
    EXPECT_TRUE(story().find("wantFull true") != std::string::npos) << story();
    ASSERT_TRUE(waitFor(5s, [this] { return gameIsInFront(); }));

    // Saved, and said so only because the file is there.
    ASSERT_TRUE(openMenu()) << story();
    QElapsedTimer frozen;
    frozen.start();
    waitFor(3s, [] { return false; }); // the session's time stands still meanwhile
    const QString folder = QString::fromLatin1(way.stateFolder), pattern = QString::fromLatin1(way.statePattern);
    EXPECT_TRUE(files(folder, pattern).isEmpty());
    ASSERT_TRUE(chooseItem(saveState));
    const double frozenSeconds = double(frozen.elapsed()) / 1000;
    EXPECT_TRUE(waitFor(6s, [&] { return !files(folder, pattern).isEmpty(); })) << story();
    EXPECT_TRUE(waitFor(4s, [&] { return firstGame().contains(u"stateSavedAt"_s); }));
    ASSERT_TRUE(waitFor(5s, [this] { return gameIsInFront(); }));
    EXPECT_TRUE(isMoving(display));

    // The picture shows the game, and not the menu that it was asked for in.
    ASSERT_TRUE(openMenu());
    ASSERT_TRUE(chooseItem(screenshot));
    ASSERT_TRUE(waitFor(8s, [&] { return !files(u"Pictures/Velko"_s, u"Lanterns *.png"_s).isEmpty(); }));
    EXPECT_TRUE(showsDemoGame(QImage(files(u"Pictures/Velko"_s, u"Lanterns *.png"_s).value(0))));
    ASSERT_TRUE(waitFor(5s, [this] { return gameIsInFront(); }));

    ASSERT_TRUE(openMenu());
    pad->press("Down", quit);
    pad->press("A");
    waitFor(400ms, [] { return false; });
    EXPECT_TRUE(gameStandsStill()) << "one press must not quit";
    pad->press("A");
    EXPECT_TRUE(waitFor(20s, [this] { return game().isEmpty(); })) << story();
    const double eveningSeconds = double(evening.elapsed()) / 1000;
    ASSERT_TRUE(velko->ends(20s));
    EXPECT_EQ(velko->status(), 0) << velko->errors().constData();
    EXPECT_TRUE(waitFor(10s, [&] { return display.programs().isEmpty(); }));

    const QJsonObject game = firstGame();
    EXPECT_EQ(game[u"sessionCount"].toInt(), 1);
    EXPECT_GT(game[u"lastSessionSeconds"].toDouble(), 1);
    EXPECT_LT(game[u"lastSessionSeconds"].toDouble(), eveningSeconds - frozenSeconds);
}

INSTANTIATE_TEST_SUITE_P(
    Emulators, Couch,
    testing::Values(Way{"mgba", "mgba-qt", "", "Games/Game Boy", "*.ss1"},
                    Way{"mgbaInANamespace", "mgba-qt", "emulatorPath.mgba=HOME/bin/boxed", "Games/Game Boy", "*.ss1"},
                    Way{"retroarch", "retroarch", "emulator.gb=retroarch", ".config/retroarch/states", "*.state*"}),
    [](const auto &row) { return row.param.name; });

class CouchWindow : public CouchPlay {
protected:
    using CouchPlay::CouchPlay;
    /// Velko's own window has the keyboard, and nothing of it lies over the whole screen.
    bool velkoIsInFront() const
    {
        const auto front = display.desktop().active();
        return front && front->pid == velko->pid() && front->place != screen;
    }
};

TEST_F(CouchWindow, aStartsTheGameAndItsEndLeadsBack)
{
    ASSERT_TRUE(installDemoGame(display));
    openWindow();
    ASSERT_TRUE(waitFor(20s, [this] { return velkoIsInFront(); })) << story();
    pad->press("A"); // kept until the first page listens
    ASSERT_TRUE(waitFor(30s, [this] { return !game().isEmpty(); })) << story();
    ASSERT_TRUE(waitForDemoGame(display, 30s)) << story();
    ASSERT_TRUE(waitFor(5s, [this] { return gameIsInFront(); })) << story();

    waitFor(2s, [] { return false; }); // B would cancel a start that is still going on
    ASSERT_TRUE(openMenu()) << story();
    pad->press("B");
    ASSERT_TRUE(waitFor(5s, [this] { return gameIsInFront() && !gameStandsStill(); })) << story();
    EXPECT_TRUE(isMoving(display));
    ASSERT_TRUE(openMenu()) << story();
    quitFromMenu();
    ASSERT_TRUE(waitFor(20s, [this] { return game().isEmpty(); })) << story();
    EXPECT_TRUE(waitFor(5s, [this] { return velkoIsInFront(); })) << story();
    EXPECT_EQ(firstGame()[u"sessionCount"].toInt(), 1);
    const auto saved = demoGameSave(display);
    ASSERT_TRUE(saved) << "the battery of the cartridge";
    EXPECT_EQ(saved->evenings, 1);
    EXPECT_TRUE(velko->isRunning());
}

class CouchTrouble : public CouchPlay { };

TEST_F(CouchTrouble, aFrozenGameGoesOnWhenVelkoIsKilled)
{
    ASSERT_TRUE(installDemoGame(display));
    play(demoGameTitle);
    ASSERT_TRUE(waitForDemoGame(display, 30s)) << velko->errors().constData();
    ASSERT_TRUE(openMenu());
    const QList<qint64> all = game();
    velko->kill();
    EXPECT_TRUE(waitFor(1s, [&] { return std::ranges::none_of(all, isStopped); }));
    EXPECT_TRUE(std::ranges::all_of(all, isRunning));
    EXPECT_TRUE(isMoving(display));
}

/// The smallest program for Dolphin: a processor that counts for ever.
static QByteArray countingProgram()
{
    QByteArray file(512, '\0');
    const auto put = [&file](int offset, quint32 word) {
        for (int i = 0; i < 4; ++i)
            file[offset + i] = char(word >> (24 - 8 * i));
    };
    constexpr quint32 address = 0x80003100;
    put(0x00, 0x100); // the code's place in the file, in memory, its size
    put(0x48, address);
    put(0x90, 0x100);
    put(0xe0, address); // where it begins
    put(0x100, 0x38630001); // addi r3, r3, 1
    put(0x104, 0x4bfffffc); // back to it
    return file;
}

class CouchDolphin : public CouchPlay {
protected:
    void begin(const QByteArray &preferences)
    {
        emulatorName = u"dolphin-emu"_s;
        chooseEmulator(preferences);
        const QString path = display.write(u"Games/Counting.dol"_s, countingProgram());
        display.write(u".local/share/VelkoEmu/library.json"_s,
                      R"([{"id":"5E1F6A52-0C3E-4B5B-9C5B-0B9D5A3C7E10","title":"Counting","consoleID":"gc","path":")"
                          + path.toUtf8() + R"(","addedAt":700000000}])");
        play(u"Counting"_s);
        ASSERT_TRUE(waitFor(30s, [this] { return gameIsInFront(); })) << velko->errors().constData() << story();
        waitFor(2s, [] { return false; }); // it takes no command while it is still starting
    }
};

TEST_F(CouchDolphin, savesAStateAndQuits)
{
    begin("");
    ASSERT_TRUE(openMenu()) << story();
    ASSERT_TRUE(chooseItem(saveState));
    const QString folder = u".local/share/dolphin-emu/StateSaves"_s;
    EXPECT_TRUE(waitFor(6s, [&] { return !files(folder, u"*.s0*"_s).isEmpty(); }));
    EXPECT_TRUE(waitFor(4s, [&] { return firstGame().contains(u"stateSavedAt"_s); }));
    ASSERT_TRUE(waitFor(5s, [this] { return gameIsInFront(); }));
    ASSERT_TRUE(openMenu());
    quitFromMenu();
    EXPECT_TRUE(waitFor(20s, [this] { return game().isEmpty(); })) << story();
    EXPECT_TRUE(velko->ends(20s));
}

TEST_F(CouchDolphin, itsQuestionIsLeftToTheUser)
{
    display.write(
        u"bin/asks"_s,
        "#!/bin/bash\narguments=()\nwhile [ $# -gt 0 ]; do\n  if [ \"$2\" = Dolphin.Interface.ConfirmStop=False ]; "
        "then shift 2; else arguments+=(\"$1\"); shift; fi\ndone\n"
        "exec /usr/games/dolphin-emu -C Dolphin.Interface.ConfirmStop=True \"${arguments[@]}\"\n",
        true);
    begin("emulatorPath.dolphin=" + display.home().toUtf8() + "/bin/asks");
    ASSERT_TRUE(openMenu()) << story();
    quitFromMenu();
    const auto asks = [this] {
        return std::ranges::any_of(display.desktop().windows(),
                                   [](const DesktopWindow &window) { return window.title == "Confirm"_L1; });
    };
    ASSERT_TRUE(waitFor(10s, asks)) << story();
    EXPECT_FALSE(waitFor(6s, [this] { return game().isEmpty(); })) << "ended by force while it asked";
    ASSERT_TRUE(asks());
    display.run(u"xdotool"_s, {u"key"_s, u"Return"_s});
    EXPECT_TRUE(waitFor(10s, [this] { return game().isEmpty(); })) << story();
    EXPECT_TRUE(velko->ends(30s));
}

/// Two displays, of which the right one is for playing.
class CouchWithTwoDisplays : public CouchWindow, public testing::WithParamInterface<std::string> {
protected:
    CouchWithTwoDisplays() : CouchWindow(XServer::Kind::twoOutputs, QString::fromStdString(GetParam()))
    {
        screen = {1920, 0, 1920, 1080};
    }
};

TEST_P(CouchWithTwoDisplays, playsOnTheChosenOneUntilItIsGone)
{
    chooseEmulator("playDisplay=" + display.secondOutput().toUtf8());
    ASSERT_TRUE(installDemoGame(display));
    openWindow();
    ASSERT_TRUE(waitFor(20s, [this] { return velkoIsInFront(); })) << story();
    pad->press("A");
    ASSERT_TRUE(waitFor(40s, [this] { return gameIsInFront(); })) << story();
    ASSERT_TRUE(waitFor(20s, [this] { return story().find("look 1: placed") != std::string::npos; })) << story();
    ASSERT_TRUE(openMenu()) << story();

    if (display.turnSecondOff()) screen = {0, 0, 1920, 1080};
    EXPECT_TRUE(waitFor(5s, [this] { return menuIsInFront(); })) << story();
    ASSERT_TRUE(display.pressKey(u"Escape"_s));
    EXPECT_TRUE(waitFor(5s, [this] { return !gameStandsStill(); })) << "the menu has no keyboard";
    EXPECT_TRUE(waitFor(40s, [this] { return gameIsInFront(); })) << story();
    ASSERT_TRUE(openMenu()) << story();
    quitFromMenu();
    EXPECT_TRUE(waitFor(20s, [this] { return game().isEmpty(); })) << story();
    EXPECT_TRUE(waitFor(5s, [this] { return velkoIsInFront(); })) << story();
}

/// Others that happen to be installed can be named: VELKO_WINDOW_MANAGERS="kwin_x11 mutter mutter-wayland sway".
static std::vector<std::string> windowManagers()
{
    std::vector<std::string> all{"openbox", "xfwm4"};
    for (const QString &each : qEnvironmentVariable("VELKO_WINDOW_MANAGERS").split(u' ', Qt::SkipEmptyParts))
        if (std::ranges::find(all, each.toStdString()) == all.end()) all.push_back(each.toStdString());
    return all;
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, CouchWithTwoDisplays, testing::ValuesIn(windowManagers()),
                         [](const auto &row) { return QString::fromStdString(row.param).remove(u'-').toStdString(); });
