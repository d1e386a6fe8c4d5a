#include "play/states/StateTalk.h"

#include "fakes/FakeLocalSockets.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static const LocalAddress socketAt{u"/run/talk.sock"_s, 0};
static const LocalAddress portAt{{}, 55355};
static const QList<qint64> game{10, 11};

struct PineRow {
    const char *name;
    QByteArray answer;
    qint64 pid;
    bool done;
};
class Pine : public testing::TestWithParam<PineRow> { };
TEST_P(Pine, savesWhenTheGameSaysSo)
{
    FakeLocalSockets sockets;
    QByteArray asked;
    const auto answer = [&](const QByteArray &question) {
        asked += question;
        return GetParam().answer;
    };
    sockets.atPath[socketAt.path] = {.answer = answer, .pid = GetParam().pid, .piece = 2};
    const bool mine = game.contains(GetParam().pid);
    EXPECT_EQ(talkToPine(sockets, socketAt, game, StateCommand::save), GetParam().done);
    EXPECT_EQ(asked, mine ? QByteArray::fromHex("06 00 00 00 09 01") : QByteArray());
    asked.clear();
    EXPECT_EQ(talkToPine(sockets, socketAt, game, StateCommand::load), GetParam().done);
    EXPECT_EQ(asked, mine ? QByteArray::fromHex("06 00 00 00 0a 01") : QByteArray());
}
INSTANTIATE_TEST_SUITE_P(Answers, Pine,
                         testing::Values(PineRow{"done", QByteArray::fromHex("05 00 00 00 00"), 11, true},
                                         PineRow{"failed", QByteArray::fromHex("05 00 00 00 ff"), 11, false},
                                         PineRow{"silence", {}, 11, false},
                                         PineRow{"half", QByteArray::fromHex("05 00 00"), 11, false},
                                         PineRow{"noLength", QByteArray::fromHex("00 00 00 00 00"), 11, false},
                                         PineRow{"emptyFrame", QByteArray::fromHex("04 00 00 00"), 11, false},
                                         PineRow{"endless", QByteArray::fromHex("ff ff ff ff 00"), 11, false},
                                         PineRow{"anotherCopy", QByteArray::fromHex("05 00 00 00 00"), 99, false}),
                         [](const auto &row) { return row.param.name; });

TEST(StateTalk, retroArchIsAskedOnlyWhilePlaying)
{
    FakeLocalSockets sockets;
    EXPECT_FALSE(talkToRetroArch(sockets, portAt, StateCommand::save)) << "nobody listens";
    QByteArray status = "GET_STATUS CONTENTLESS";
    QList<QByteArray> asked;
    sockets.atPort[portAt.port].answer = [&](const QByteArray &question) {
        asked += question;
        return question == "GET_STATUS" ? status : QByteArray();
    };
    EXPECT_FALSE(talkToRetroArch(sockets, portAt, StateCommand::save));
    status = "GET_STATUS PLAYING game_boy,lanterns,crc32=0";
    EXPECT_TRUE(talkToRetroArch(sockets, portAt, StateCommand::save));
    EXPECT_TRUE(talkToRetroArch(sockets, portAt, StateCommand::load));
    EXPECT_EQ(asked.count("SAVE_STATE"), 1);
    EXPECT_EQ(asked.count("LOAD_STATE"), 1);
}

struct QmpRow {
    const char *name;
    QByteArray answer; ///< to the second command
    bool done;
};
class Qmp : public testing::TestWithParam<QmpRow> { };
TEST_P(Qmp, tellsWhetherTheSnapshotWasMade)
{
    FakeLocalSockets sockets;
    QList<QByteArray> asked;
    const auto answer = [&](const QByteArray &question) -> QByteArray {
        asked += question;
        return asked.size() == 1 ? "{\"return\": {}}\r\n" : GetParam().answer;
    };
    sockets.atPath[socketAt.path] = {
        .answer = answer, .pid = 10, .greeting = "{\"QMP\": {\"version\": {}}}\r\n", .piece = 7};
    EXPECT_EQ(talkToQmp(sockets, socketAt, game, StateCommand::save, u"velko-1"_s), GetParam().done);
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked[0], "{\"execute\":\"qmp_capabilities\"}\n");
    EXPECT_EQ(asked[1],
              "{\"arguments\":{\"command-line\":\"savevm velko-1\"},\"execute\":\"human-monitor-command\"}\n");
}
INSTANTIATE_TEST_SUITE_P(
    Answers, Qmp,
    testing::Values(QmpRow{"done", "{\"event\": \"STOP\"}\r\n{\"event\": \"RESUME\"}\r\n{\"return\": \"\"}\r\n", true},
                    QmpRow{"refused", "{\"return\": \"Error: No block device can accept snapshots\\r\\n\"}\r\n", false},
                    QmpRow{"error", "{\"error\": {\"class\": \"CommandNotFound\"}}\r\n", false},
                    QmpRow{"noJson", "hello\nworld\n", false}, QmpRow{"endless", QByteArray(400'000, 'x'), false}),
    [](const auto &row) { return row.param.name; });
