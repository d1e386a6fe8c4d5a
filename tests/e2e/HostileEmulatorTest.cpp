#include "DemoGame.h"
#include "Library.h"
#include "Processes.h"
#include "Program.h"
#include "Waiting.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A display on which this script is the user's own choice for mGBA.
class HostileEmulator : public testing::Test {
protected:
    void choose(const QByteArray &script, bool executable = true)
    {
        emulator = display.write(u"bin/emulator"_s, script, executable);
        display.write(u".config/VelkoEmu/preferences.ini"_s,
                      "[General]\nemulatorPath.mgba=" + emulator.toUtf8() + '\n');
        ASSERT_TRUE(installDemoGame(display));
    }
    QList<qint64> running() const
    {
        QList<qint64> all = display.programs();
        all.removeIf([this](qint64 pid) { return !commandLine(pid).contains(emulator); });
        return all;
    }
    QJsonObject game() const { return libraryOf(display).value_or(QJsonArray()).first().toObject(); }

    VirtualDisplay display;
    QString emulator;
};

TEST_F(HostileEmulator, thatEndsAtOnceIsQuotedToTheUser)
{
    choose("#!/bin/sh\nfor i in 1 2 3; do echo line $i; done\necho cannot find the flux capacitor >&2\nexit 7\n");
    Program play(display, {u"play"_s, demoGameTitle});
    ASSERT_TRUE(play.ends(10s));
    EXPECT_EQ(play.status(), 1);
    EXPECT_TRUE(play.errors().contains("cannot find the flux capacitor")) << play.errors().constData();
    EXPECT_TRUE(libraryOf(display));
    EXPECT_TRUE(display.programs().isEmpty());
}

TEST_F(HostileEmulator, thatPrintsWithoutEndDoesNotFillTheMemory)
{
    choose("#!/bin/sh\nhead -c 100000000 /dev/zero | tr '\\0' 'x'\necho\necho the last line\nexit 1\n");
    Program play(display, {u"play"_s, demoGameTitle});
    ASSERT_TRUE(play.ends(15s));
    EXPECT_EQ(play.status(), 1);
    EXPECT_TRUE(play.errors().contains("the last line")) << play.errors().right(300).constData();
    EXPECT_LT(play.errors().size(), 20000);
}

TEST_F(HostileEmulator, thatMayNotBeStartedIsAFailureNotACrash)
{
    choose("#!/bin/sh\nexit 0\n", false);
    Program play(display, {u"play"_s, demoGameTitle});
    ASSERT_TRUE(play.ends(10s));
    EXPECT_EQ(play.status(), 1);
    EXPECT_FALSE(play.errors().trimmed().isEmpty());
    EXPECT_EQ(game()[u"sessionCount"].toInt(), 0);
}

TEST_F(HostileEmulator, thatHangsIsWaitedForUntilItEnds)
{
    choose("#!/bin/sh\nexec 1>&- 2>&-\nwhile true; do sleep 0.2; done # $0\n");
    Program play(display, {u"play"_s, demoGameTitle});
    ASSERT_TRUE(waitFor(30s, [&] { return !running().isEmpty(); })) << play.errors().constData();
    EXPECT_FALSE(play.ends(3500ms));
    killTree(running().first());
    ASSERT_TRUE(play.ends(5s));
    EXPECT_GE(play.status(), 0) << "velko crashed";
    EXPECT_EQ(game()[u"sessionCount"].toInt(), 1);
    EXPECT_TRUE(display.programs().isEmpty());
}

TEST_F(HostileEmulator, thatGoesOnTalkingOutlivesVelko)
{
    choose("#!/bin/sh\ni=0\nwhile [ $i -lt 100 ]; do i=$((i + 1)); echo frame $i; echo $i > \"$HOME/frame\"; sleep "
           "0.05; done\n");
    Program play(display, {u"play"_s, demoGameTitle});
    ASSERT_TRUE(waitFor(30s, [&] { return !display.read(u"frame"_s).isEmpty(); })) << play.errors().constData();
    play.kill();
    ASSERT_TRUE(play.ends(2s));
    const int atTheKill = display.read(u"frame"_s).toInt();
    EXPECT_TRUE(waitFor(10s, [&] { return display.read(u"frame"_s).toInt() > atTheKill + 5; }));
    EXPECT_TRUE(libraryOf(display));
}
