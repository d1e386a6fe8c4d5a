#include "DemoGame.h"
#include "Processes.h"
#include "Program.h"
#include "Waiting.h"

#include <QDirIterator>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
bool isStopped(qint64 pid)
{
    QFile stat(u"/proc/%1/stat"_s.arg(pid));
    if (!stat.open(QFile::ReadOnly)) return false;
    const QByteArray fields = stat.readAll();
    return fields.mid(fields.lastIndexOf(')') + 2, 1) == "T";
}

/// The demo game in a real emulator, started from a terminal, and a controller.
struct GameOnTheSofa {
    VirtualDisplay display;
    std::unique_ptr<Program> velko;
    qint64 game = 0;

    bool begins()
    {
        if (!display.isReady() || !installDemoGame(display)) return false;
        velko = std::make_unique<Program>(display, QStringList{u"play"_s, u"--virtual-pad"_s, u"pad"_s, demoGameTitle});
        const auto window = waitForDemoGame(display, 60s);
        game = window ? window->pid : 0;
        return game > 0;
    }
    ~GameOnTheSofa() { killTree(game); }

    void write(const QByteArray &lines) const
    {
        QFile pipe(display.home() + u"/pad"_s);
        if (pipe.open(QFile::WriteOnly | QFile::Unbuffered)) pipe.write(lines);
    }
    bool opensMenu()
    {
        write("hold View\npress Menu\nrelease View\n");
        return waitFor(5s, [this] { return isStopped(game) && panel(); });
    }
    bool panel()
    {
        for (const DesktopWindow &window : display.desktop().windows()) {
            if (window.title == u"Velko" && window.place == QRect(QPoint(0, 0), display.desktop().size())) return true;
        }
        return false;
    }
    bool hasState() const
    {
        QDirIterator files(display.home(), {u"*.ss1"_s}, QDir::Files, QDirIterator::Subdirectories);
        return files.hasNext();
    }
};
} // namespace

TEST(Overlay, stopsTheGameSavesItsStateGoesBackAndQuitsIt)
{
    GameOnTheSofa sofa;
    ASSERT_TRUE(sofa.begins());
    ASSERT_TRUE(sofa.opensMenu());
    EXPECT_TRUE(waitFor(5s, [&] { return !isMoving(sofa.display); })); // the panel has come to rest
    sofa.write("press A\n"); // Resume
    ASSERT_TRUE(waitFor(5s, [&] { return !isStopped(sofa.game) && !sofa.panel(); }));
    EXPECT_TRUE(isMoving(sofa.display));

    ASSERT_TRUE(sofa.opensMenu());
    sofa.write("press Down\npress A\n");
    EXPECT_TRUE(waitFor(10s, [&] { return sofa.hasState(); }));
    EXPECT_FALSE(isStopped(sofa.game));

    ASSERT_TRUE(sofa.opensMenu());
    for (int i = 0; i < 7; ++i)
        sofa.write("press Down\n");
    sofa.write("press A\npress A\n");
    EXPECT_TRUE(sofa.velko->ends(30s));
    EXPECT_EQ(sofa.velko->status(), 0) << sofa.velko->errors().constData();
    EXPECT_FALSE(isRunning(sofa.game));
    EXPECT_TRUE(demoGameSave(sofa.display));
}

TEST(Overlay, leavesNoGameStoppedWhenVelkoIsKilled)
{
    GameOnTheSofa sofa;
    ASSERT_TRUE(sofa.begins());
    ASSERT_TRUE(sofa.opensMenu());
    sofa.velko->kill();
    EXPECT_TRUE(waitFor(1s, [&] { return !isStopped(sofa.game); }));
    EXPECT_TRUE(isRunning(sofa.game));
}
