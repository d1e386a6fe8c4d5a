#include "DemoGame.h"
#include "GamePicture.h"
#include "Library.h"
#include "Processes.h"
#include "Program.h"
#include "Waiting.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static QList<qint64> emulators(const VirtualDisplay &display)
{
    QList<qint64> all = display.programs();
    all.removeIf([](qint64 pid) { return !commandLine(pid).section(u' ', 0, 0).endsWith(u"/mgba-qt"_s); });
    return all;
}

static QString commandLines(const QList<qint64> &programs)
{
    QStringList lines;
    for (const qint64 pid : programs)
        lines += commandLine(pid);
    return lines.join(u'\n');
}

TEST(Play, countsARealSession)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.isReady());
    ASSERT_TRUE(installDemoGame(display));

    Program play(display, {u"play"_s, demoGameTitle});
    ASSERT_TRUE(waitFor(30s, [&] { return !emulators(display).isEmpty(); })) << play.errors().constData();
    QElapsedTimer session;
    session.start();
    const auto window = waitForDemoGame(display, 15s);
    ASSERT_TRUE(window) << play.errors().constData();
    EXPECT_EQ(window->pid, emulators(display).value(0));
    EXPECT_TRUE(isMoving(display));
    waitFor(4s, [&] { return session.elapsed() > 6000 || !play.isRunning(); });
    EXPECT_TRUE(play.isRunning());

    display.desktop().close(window->id);
    ASSERT_TRUE(waitFor(20s, [&] { return emulators(display).isEmpty(); }));
    const double measured = double(session.elapsed()) / 1000;
    ASSERT_TRUE(play.ends(5s));
    EXPECT_EQ(play.status(), 0) << play.errors().constData();

    const auto library = libraryOf(display);
    ASSERT_TRUE(library);
    ASSERT_EQ(library->size(), 1);
    const QJsonObject game = library->first().toObject();
    EXPECT_EQ(game[u"title"].toString().toStdString(), "Lanterns");
    EXPECT_EQ(game[u"consoleID"].toString().toStdString(), "gb");
    EXPECT_EQ(game[u"sessionCount"].toInt(), 1);
    EXPECT_NEAR(game[u"lastSessionSeconds"].toDouble(), measured, 1);
    EXPECT_NEAR(game[u"playSeconds"].toDouble(), game[u"lastSessionSeconds"].toDouble(), 0.05);
    EXPECT_TRUE(waitFor(10s, [&] { return display.programs().isEmpty(); }))
        << qPrintable(commandLines(display.programs()));

    const auto save = demoGameSave(display);
    ASSERT_TRUE(save);
    EXPECT_EQ(save->evenings, 1);
    EXPECT_GT(save->frames, 60u);
}

TEST(Play, leavesTheGameAloneWhenVelkoIsKilled)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.isReady());
    ASSERT_TRUE(installDemoGame(display));
    Program play(display, {u"play"_s, demoGameTitle});
    const auto window = waitForDemoGame(display, 15s);
    ASSERT_TRUE(window) << play.errors().constData();

    play.kill();
    ASSERT_TRUE(play.ends(2s));
    EXPECT_TRUE(isMoving(display));
    EXPECT_EQ(emulators(display).size(), 1);
    ASSERT_TRUE(libraryOf(display));
    EXPECT_EQ(libraryOf(display)->size(), 1);

    Program list(display, {u"list"_s, u"--json"_s});
    ASSERT_TRUE(list.ends(10s));
    EXPECT_EQ(list.status(), 0) << list.errors().constData();
    EXPECT_TRUE(gamesOf(list.output()));

    display.desktop().close(window->id);
    EXPECT_TRUE(waitFor(20s, [&] { return display.programs().isEmpty(); }))
        << qPrintable(commandLines(display.programs()));
}

TEST(GamePicture, isNotTakenForSomethingElse)
{
    QImage black(1280, 720, QImage::Format_RGB32);
    black.fill(Qt::black);
    EXPECT_FALSE(showsDemoGame(black));
    EXPECT_FALSE(showsDemoGame({}));
    QImage even(1280, 720, QImage::Format_RGB32);
    even.fill(qRgb(50, 40, 60));
    EXPECT_FALSE(showsDemoGame(even));
}
