#include "SupervisionHouse.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Quit = SupervisionHouse;
using Asked = std::vector<qint64>;

namespace {
struct Quitting : SupervisionHouse {
    /// A game that is being played.
    void begin(const QString &engine)
    {
        options.fullScreenWanted = false;
        play(engine);
        show(gameWindow, {0, 0, 640, 480});
        advance(1min);
    }
    /// How long the game lives from now on, to 50 ms; at most a minute.
    std::chrono::milliseconds life()
    {
        const auto begun = house.clock.awake();
        while (house.processes.isAlive(pid) && house.clock.awake() - begun < 1min)
            advance(50ms);
        return house.clock.awake() - begun;
    }
};
} // namespace

struct RequestRow {
    const char *name;
    QString engine;
    bool window;
    qint64 windowOf;
    bool closes;
    qint64 asked; ///< who gets the signal
};
class Request : public Quitting, public testing::WithParamInterface<RequestRow> { };

TEST_P(Request, isMadeOnceToAGameThatRuns)
{
    options.fullScreenWanted = false;
    play(GetParam().engine);
    if (GetParam().windowOf != pid) addProcess(GetParam().windowOf, pid);
    if (GetParam().window) show(gameWindow, {0, 0, 640, 480}, GetParam().windowOf);
    advance(1min);
    house.processes.freeze(pid);
    house.processes.stubborn = {pid, GetParam().windowOf};
    windows.unclosable = {gameWindow};
    supervisor.quit();
    EXPECT_TRUE(house.processes.frozen.empty());
    supervisor.quit();
    EXPECT_TRUE(supervisor.leaving());
    advance(10s);
    EXPECT_EQ(windows.closeRequests, GetParam().closes ? QList<quint64>{gameWindow} : QList<quint64>());
    EXPECT_EQ(house.processes.asked, GetParam().closes ? Asked() : Asked{GetParam().asked});
    EXPECT_TRUE(house.processes.processes.empty()) << "ended by force, with all descendants";
    EXPECT_EQ(told.filter(u"quit"_s).size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Engines, Request,
                         testing::Values(RequestRow{"mgba", u"mgba"_s, true, 500, true, 0},
                                         RequestRow{"rpcs3", u"rpcs3"_s, true, 500, true, 0},
                                         RequestRow{"azahar", u"azahar"_s, true, 500, true, 0},
                                         RequestRow{"mgbaWithoutWindow", u"mgba"_s, false, 500, false, 500},
                                         RequestRow{"retroarch", u"retroarch"_s, true, 500, false, 500},
                                         RequestRow{"dolphin", u"dolphin"_s, true, 500, false, 500},
                                         RequestRow{"native", u"native"_s, true, 500, false, 500},
                                         RequestRow{"behindAWrapper", u"ppsspp"_s, true, 501, false, 501}),
                         [](const auto &row) { return row.param.name; });

TEST_F(Quitting, isOverWhenTheGameHasEnded)
{
    begin(u"retroarch"_s);
    supervisor.quit();
    advance(100ms);
    EXPECT_EQ(told, QStringList{u"quit finished"_s});
    EXPECT_FALSE(supervisor.leaving());
    EXPECT_FALSE(supervisor.game());
    EXPECT_EQ(library.games().first().sessionCount, 1);
    EXPECT_EQ(library.games().first().lastSessionSeconds, 60);
    EXPECT_EQ(house.clock.pending(), 0);
    EXPECT_FALSE(QFile::exists(house.places.placementLogFile()));
}

TEST_F(Quitting, forcesAGameThatIgnoresIt)
{
    begin(u"retroarch"_s);
    house.processes.stubborn = {pid};
    supervisor.quit();
    QList<int> seconds{supervisor.quitSecondsLeft()};
    QObject::connect(&supervisor, &GameSupervisor::changed, &supervisor, [&] {
        if (supervisor.leaving() && supervisor.quitSecondsLeft() != seconds.last())
            seconds += supervisor.quitSecondsLeft();
    });
    EXPECT_EQ(life(), 4250ms);
    EXPECT_EQ(seconds, (QList<int>{4, 3, 2, 1, 0}));
    EXPECT_EQ(told, QStringList{u"quit finished"_s});
}

TEST_F(Quitting, doesNotForceAGameThatStillSaves)
{
    begin(u"retroarch"_s);
    house.processes.stubborn = {pid};
    supervisor.quit();
    Timer saving = house.clock.every(500ms, [this] { house.processes.written[pid] += 4096; });
    const auto stop = house.clock.after(7s, [&] { saving.reset(); });
    EXPECT_NEAR(double(life().count()), 8250, 300) << "a second after the last write that was seen";
    EXPECT_TRUE(lines().isEmpty());
}

TEST_F(Quitting, doesNotWaitLongerThanTheFirstCheckForWrites)
{
    begin(u"retroarch"_s);
    house.processes.stubborn = {pid};
    supervisor.quit();
    const Timer saving = house.clock.every(500ms, [this] { house.processes.written[pid] += 4096; });
    EXPECT_EQ(life(), 12s);
    EXPECT_EQ(lines(), QStringList{u"quit: RetroArch still there after 12 s, killed"_s});
}

TEST_F(Quitting, givesUpOnWhatCannotBeKilled)
{
    begin(u"retroarch"_s);
    house.processes.stubborn = house.processes.immortal = {pid};
    supervisor.quit();
    advance(15900ms);
    EXPECT_TRUE(supervisor.leaving());
    advance(200ms);
    EXPECT_EQ(lines(),
              (QStringList{u"quit: RetroArch still there after 12 s, killed"_s,
                           u"quit: RetroArch still there after 16 s, killed"_s}));
    EXPECT_EQ(told, QStringList{u"quit finished"_s});
    EXPECT_TRUE(library.running().isEmpty());
    EXPECT_EQ(library.games().first().sessionCount, 1);
    EXPECT_EQ(house.clock.pending(), 0);
}

TEST_F(Quitting, leavesAloneWhoeverHasGotTheNumberOfAHelperThatEnded)
{
    begin(u"retroarch"_s);
    addProcess(501, pid);
    house.processes.stubborn = {pid};
    supervisor.quit();
    house.processes.processes.erase(501);
    advance(1s);
    addProcess(501, 1);
    advance(10s);
    EXPECT_FALSE(house.processes.isAlive(pid));
    EXPECT_TRUE(house.processes.isAlive(501));
}

TEST_F(Quitting, leavesNoProcessBehind)
{
    begin(u"dolphin"_s);
    addProcess(501, pid);
    addProcess(502, 501);
    supervisor.quit();
    house.processes.processes[501].parent = 1; // its parent has ended
    advance(900ms);
    EXPECT_TRUE(house.processes.isAlive(502)) << "it gets a moment";
    advance(500ms);
    EXPECT_TRUE(house.processes.processes.empty());
    EXPECT_EQ(house.processes.asked, Asked{pid});
}

// Questions

TEST_F(Quitting, handsItsQuestionToTheUser)
{
    begin(u"dolphin"_s);
    house.processes.stubborn = {pid};
    supervisor.quit();
    advance(500ms);
    ask();
    advance(2s);
    EXPECT_FALSE(supervisor.handedOver()) << "the user needs not know of what answers itself";
    advance(250ms);
    EXPECT_TRUE(supervisor.handedOver());
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::none);
    EXPECT_EQ(windows.active, question);
    advance(150ms);
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::quit);
    advance(60s);
    EXPECT_TRUE(supervisor.handedOver());
    windows.close(question);
    advance(500ms);
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::none);
    advance(5s);
    end(pid);
    EXPECT_EQ(told, QStringList{u"quit finished"_s});
    EXPECT_FALSE(supervisor.handedOver());
    EXPECT_EQ(house.processes.asked, Asked{pid});
}

struct AnswerRow {
    const char *name;
    std::chrono::milliseconds asked, answered; ///< since the quit
    std::chrono::milliseconds life; ///< since then, of a game that does not end
    bool logged;
};
class Answer : public Quitting, public testing::WithParamInterface<AnswerRow> { };

TEST_P(Answer, givesTheEmulatorTime)
{
    begin(u"dolphin"_s);
    house.processes.stubborn = {pid};
    if (GetParam().asked < 0ms) ask();
    supervisor.quit();
    const auto asks = house.clock.after(std::max(GetParam().asked, 0ms), [this] {
        if (GetParam().asked >= 0ms) ask();
    });
    const auto answers = house.clock.after(GetParam().answered, [this] { windows.close(question); });
    advance(GetParam().answered);
    EXPECT_NEAR(double(life().count()), double(GetParam().life.count()), 300);
    EXPECT_EQ(lines().filter(u"still there"_s).size(), GetParam().logged ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Times, Answer,
    testing::Values(AnswerRow{"beforeItIsHandedOver", 500ms, 2s, 10s, true}, // 15 s of patience, but a check at 12 s
                    AnswerRow{"inTime", 500ms, 20s, 15s + 4500ms, false}, // gone for 15 s, then 4 s
                    AnswerRow{"wasOpenBefore", -1ms, 50ms, 4250ms - 50ms, false}),
    [](const auto &row) { return row.param.name; });

TEST_F(Quitting, waits90SecondsForAnAnswer)
{
    begin(u"dolphin"_s);
    house.processes.stubborn = {pid};
    supervisor.quit();
    ask();
    advance(92s);
    EXPECT_TRUE(supervisor.handedOver());
    advance(1s);
    EXPECT_FALSE(supervisor.handedOver());
    EXPECT_TRUE(supervisor.leaving());
    EXPECT_NEAR(double(life().count()), 4000, 500) << "and is not handed over again";
}

TEST_F(Quitting, endsWhenTheUserWantsTheGameBack)
{
    begin(u"dolphin"_s);
    house.processes.stubborn = {pid};
    supervisor.quit();
    supervisor.endHandOver(); // nothing was handed over
    EXPECT_TRUE(supervisor.leaving());
    ask();
    advance(3s);
    supervisor.endHandOver();
    EXPECT_FALSE(supervisor.leaving());
    advance(5min);
    EXPECT_TRUE(house.processes.isAlive(pid));
    EXPECT_EQ(supervisor.game()->pid, pid);

    windows.close(question);
    windows.unclosable = {gameWindow};
    supervisor.quit();
    EXPECT_EQ(windows.closeRequests, QList<quint64>{gameWindow});
    EXPECT_NEAR(double(life().count()), 4250, 300);
    EXPECT_EQ(house.processes.asked, Asked{pid}) << "a second signal would end it without saving";
}

TEST_F(Quitting, goesOnQuietlyWhenTheNextGameStarts)
{
    begin(u"dolphin"_s);
    house.processes.stubborn = {pid};
    supervisor.quit();
    ask();
    advance(1s);
    play(u"mgba"_s, 600);
    EXPECT_FALSE(supervisor.leaving());
    advance(4s);
    EXPECT_FALSE(house.processes.isAlive(pid));
    EXPECT_EQ(supervisor.game()->pid, 600);
    EXPECT_EQ(library.running().size(), 1);
    EXPECT_TRUE(told.isEmpty());
}
