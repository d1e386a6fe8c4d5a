#include "DemoGame.h"
#include "Library.h"
#include "Program.h"
#include "Waiting.h"

#include <QElapsedTimer>
#include <QFile>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
/// Someone who has nothing but a controller, and looks at the screen.
class Player {
public:
    explicit Player(VirtualDisplay &display) : m_display(display), velko(display, {u"--virtual-pad"_s, u"pad"_s}) { }

    bool begins()
    {
        return waitFor(30s, [this] { return !m_display.desktop().windows().isEmpty(); }) && settles();
    }

    /// Presses one after the other; after each one there must be a focus mark. Answers after which one there was none.
    QString press(const QStringList &buttons)
    {
        for (const QString &button : buttons) {
            write("press " + button.toUtf8() + '\n');
            if (settles() && waitFor(5s, [this] { return seesFocus(); })) continue;
            m_display.desktop().picture().save(QStringLiteral(VELKO_BUILD_DIR "/pad-without-focus.png"));
            return button;
        }
        return {};
    }
    void write(const QByteArray &lines)
    {
        QFile pipe(m_display.home() + u"/pad"_s);
        if (pipe.open(QFile::WriteOnly | QFile::Unbuffered)) pipe.write(lines);
    }
    bool favorite() const
    {
        const auto games = libraryOf(m_display);
        return games && games->size() == 1 && games->first().toObject()[u"favorite"_s].toBool();
    }

private:
    static bool isAccent(QRgb pixel)
    {
        return std::abs(qRed(pixel) - 0xff) < 4 && std::abs(qGreen(pixel) - 0xb2) < 4
            && std::abs(qBlue(pixel) - 0x7d) < 4;
    }
    /// The filled plate or the ring in the accent, which the thin line below the current tab is not enough for.
    bool seesFocus() const
    {
        const QImage screen = m_display.desktop().picture();
        int marked = 0;
        for (int y = 0; y < screen.height(); ++y) {
            const auto *line = reinterpret_cast<const QRgb *>(screen.constScanLine(y));
            for (int x = 0; x < screen.width(); ++x)
                marked += isAccent(line[x]);
        }
        return marked > 800;
    }
    /// Nothing on the screen has moved for a moment.
    bool settles()
    {
        QImage before;
        QElapsedTimer still;
        return waitFor(10s, [&] {
            const QImage now = m_display.desktop().picture();
            if (now != before) still.start();
            before = now;
            return still.elapsed() > 400;
        });
    }

    VirtualDisplay &m_display;

public:
    Program velko;
};
} // namespace

TEST(Pad, isEnoughFromTheWelcomeToAGamesPageAndBack)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.isReady());
    ASSERT_TRUE(writeDemoGame(display));
    Player player(display);
    ASSERT_TRUE(player.begins()) << player.velko.errors().constData();

    ASSERT_EQ(player.press({u"Up"_s, u"Down"_s, u"A"_s}), QString()) << "the folder picker";
    ASSERT_EQ(player.press({u"A"_s, u"Down"_s, u"A"_s}), QString()) << "adds the folder Games";
    ASSERT_TRUE(waitFor(10s, [&] { return libraryOf(display).value_or(QJsonArray()).size() == 1; }));

    ASSERT_EQ(player.press({u"RB"_s, u"A"_s, u"Y"_s}), QString()) << "the game's page";
    EXPECT_TRUE(waitFor(5s, [&] { return player.favorite(); }));
    ASSERT_EQ(player.press({u"Down"_s, u"Down"_s, u"Left"_s, u"Up"_s, u"B"_s}), QString()) << "back";
    player.write("hold Down\nunplug\nplug\nnonsense\n");
    ASSERT_EQ(player.press({u"Y"_s}), QString()) << "the focus is on the game again";
    EXPECT_TRUE(waitFor(5s, [&] { return !player.favorite(); }));
    ASSERT_EQ(player.press({u"Menu"_s, u"Down"_s, u"B"_s, u"LB"_s, u"LB"_s}), QString());
    EXPECT_TRUE(player.velko.isRunning());
    EXPECT_EQ(player.velko.errors().count('\n'), 1) << player.velko.errors().constData(); // the nonsense
}
