#include "library/LibraryFile.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static const QByteArray idA = "6F9619FF-8B86-D011-B42D-00CF4FC964FF";

/// One entry with the required keys and what is added to them.
static QByteArray entry(const QByteArray &more = {}, const QByteArray &id = idA)
{
    return R"({"id":")" + id + R"(","title":"Tobu","consoleID":"gb","path":"/roms/Tobu.gb","addedAt":700000000.5)"
        + more + "}";
}

static std::string rewritten(const QByteArray &json)
{
    const auto games = decodeLibrary(json);
    return games ? encodeLibrary(*games).toStdString() : "does not decode";
}

struct FileRow {
    const char *name;
    QByteArray read;
    QByteArray written; ///< what a save makes of it
};
class LibraryFileKeeps : public testing::TestWithParam<FileRow> { };

TEST_P(LibraryFileKeeps, whatItHolds)
{
    EXPECT_EQ(rewritten(GetParam().read), GetParam().written.toStdString());
    EXPECT_EQ(rewritten(GetParam().written), GetParam().written.toStdString());
}

static FileRow same(const char *name, const QByteArray &more)
{
    return {name, '[' + entry(more) + ']', '[' + entry(more) + ']'};
}
static FileRow becomes(const char *name, const QByteArray &read, const QByteArray &written)
{
    return {name, '[' + entry(read) + ']', '[' + entry(written) + ']'};
}

INSTANTIATE_TEST_SUITE_P(
    Edges, LibraryFileKeeps,
    testing::Values(
        FileRow{"noGames", " [ ]\n", "[]"}, same("onlyWhatIsRequired", ""),
        same("everything",
             R"(,"lastPlayed":1,"settings":{"resolutionScale":4,"fps60":true,"widescreen":false,"showFPS":true,)"
             R"("fullScreen":false,"quality":"maximum"},"sourceFolder":"/roms","playSeconds":61.25,"sessionCount":3,)"
             R"("lastSessionSeconds":20.000001,"daily":{"2026-03-13":20,"2026-03-14":41.25},"favorite":true,)"
             R"("status":"To finish","stateSavedAt":-0.5,"statePath":"/states/1")"),
        same("settingsOfAnOlderVersion",
             R"(,"settings":{"resolutionScale":1,"fps60":false,"widescreen":false,"showFPS":false})"),
        becomes("nullIsAbsent", R"(,"lastPlayed":null,"settings":null,"daily":null,"favorite":null,"status":null)", ""),
        becomes("nullInSettings",
                R"(,"settings":{"resolutionScale":1,"fps60":false,"widescreen":false,"showFPS":false,)"
                R"("fullScreen":null,"quality":null})",
                R"(,"settings":{"resolutionScale":1,"fps60":false,"widescreen":false,"showFPS":false})"),
        becomes("wholeNumberWithPoint", R"(,"sessionCount":3.0)", R"(,"sessionCount":3)"),
        becomes("wholeNumberWithExponent", R"(,"sessionCount":2e2)", R"(,"sessionCount":200)"),
        becomes("theLastOfTwoKeys", R"(,"favorite":true,"favorite":false)", R"(,"favorite":false)"),
        becomes("escapedKey", R"(,"f\u0061vorite":true)", R"(,"favorite":true)"), same("emptyDays", R"(,"daily":{})"),
        same("unknownKeys",
             R"(,"tags":["a", {"b":[1.50, null]}],"rating":4.0,"note":"x\u0041\/","old":null,"big":1e300)"),
        same("unknownKeyOfSettings",
             R"(,"settings":{"resolutionScale":1,"fps60":false,"widescreen":false,"showFPS":false,"hdr":{ }})"),
        same("twoUnknownKeysOfOneName", R"(,"tag":1,"tag":2)"),
        becomes("escapes", R"(,"statePath":"\u00e9\/\ud83d\ude00\b\u0000\"\\\n")",
                R"(,"statePath":"é/😀\u0008\u0000\"\\\n")"),
        FileRow{"lowerCaseID", '[' + entry("", idA.toLower()) + ']', '[' + entry() + ']'},
        FileRow{"blanks", "\r\n[ " + entry() + "\t,\n" + entry("", "00000000-0000-0000-0000-000000000001") + " ] ",
                '[' + entry() + ',' + entry("", "00000000-0000-0000-0000-000000000001") + ']'}),
    [](const auto &row) { return row.param.name; });

class LibraryFileRefuses : public testing::TestWithParam<FileRow> { };

TEST_P(LibraryFileRefuses, theWholeFile)
{
    EXPECT_EQ(decodeLibrary(GetParam().read), std::nullopt);
    EXPECT_EQ(decodeLibrary('[' + entry("", "00000000-0000-0000-0000-000000000001") + ',' + GetParam().read.mid(1)),
              std::nullopt);
}

static FileRow refused(const char *name, const QByteArray &more)
{
    return {name, '[' + entry(more) + ']', {}};
}
static FileRow replaced(const char *name, const char *part, const char *by)
{
    return {name, '[' + entry().replace(part, by) + ']', {}};
}

INSTANTIATE_TEST_SUITE_P(
    Edges, LibraryFileRefuses,
    testing::Values(
        FileRow{"empty", "", {}}, FileRow{"blank", " \n", {}}, FileRow{"object", entry(), {}},
        FileRow{"listOfTexts", R"(["a"])", {}}, FileRow{"listOfLists", "[[]]", {}}, FileRow{"listOfNull", "[null]", {}},
        FileRow{"somethingAfterwards", '[' + entry() + "] x", {}}, FileRow{"secondList", '[' + entry() + "][]", {}},
        FileRow{"commaAtTheEnd", '[' + entry() + ",]", {}}, FileRow{"markInFront", "\xEF\xBB\xBF[" + entry() + ']', {}},
        replaced("noTitle", R"("title":"Tobu",)", ""), replaced("nullTitle", R"("Tobu")", "null"),
        replaced("numberAsTitle", R"("Tobu")", "3"), replaced("dateAsText", "700000000.5", R"("700000000.5")"),
        replaced("dateTooLarge", "700000000.5", "1e999"), replaced("noComma", ",", " "), replaced("noColon", ":", " "),
        replaced("invalidUtf8", "Tobu", "T\xFF"), replaced("halfASurrogate", "Tobu", R"(T\ud800)"),
        replaced("lineBreakInText", "Tobu", "T\n"), replaced("badEscape", "Tobu", R"(T\x)"),
        replaced("idIsNoUUID", "6F9619FF", "6F9619FG"), replaced("idInBraces", idA, "{" + idA + "}"),
        refused("statusInLowerCase", R"(,"status":"playing")"), refused("statusAsNumber", R"(,"status":1)"),
        refused(
            "unknownQuality",
            R"(,"settings":{"resolutionScale":1,"fps60":false,"widescreen":false,"showFPS":false,"quality":"ultra"})"),
        refused("settingsWithoutFps60", R"(,"settings":{"resolutionScale":1,"widescreen":false,"showFPS":false})"),
        refused("scaleBeyondInt",
                R"(,"settings":{"resolutionScale":3000000000,"fps60":false,"widescreen":false,"showFPS":false})"),
        refused("brokenNumber", R"(,"sessionCount":3.5)"), refused("numberAsFlag", R"(,"favorite":1)"),
        refused("nearlyNull", R"(,"favorite":nul)"), refused("listAsDays", R"(,"daily":[])"),
        refused("nullOfADay", R"(,"daily":{"2026-03-14":null})"), refused("brokenUnknown", R"(,"tag":tru)"),
        refused("brokenInsideUnknown", R"(,"tag":[1 2])"),
        refused("unknownTooDeep", ",\"tag\":" + QByteArray(5000, '[') + QByteArray(5000, ']'))),
    [](const auto &row) { return row.param.name; });

TEST(LibraryFile, decodesAtNoByteBeforeItsEnd)
{
    const QByteArray file = "[\n" + entry(R"(,"daily":{"2026-03-14":41.25},"tags":[{"a":"b"}],"note":"\u0041é")") + ','
        + entry("", "00000000-0000-0000-0000-000000000001") + "\n]";
    ASSERT_TRUE(decodeLibrary(file));
    for (qsizetype size = 0; size < file.size(); ++size)
        EXPECT_FALSE(decodeLibrary(file.left(size))) << size;
}

TEST(LibraryFile, refusesFiftyMegabytesOfNoise)
{
    QByteArray noise(50 * 1000 * 1000, '[');
    EXPECT_FALSE(decodeLibrary(noise));
    for (qsizetype i = 0; i < noise.size(); ++i)
        noise[i] = char(quint32(i * 2654435761u) >> 24);
    EXPECT_FALSE(decodeLibrary(noise));
    noise.fill(' ');
    EXPECT_FALSE(decodeLibrary(noise));
}

TEST(LibraryFile, keepsGamesThatShareAnID)
{
    const QByteArray file = '[' + entry() + ',' + entry(R"(,"favorite":true)") + ',' + entry() + ']';
    const auto games = decodeLibrary(file);
    ASSERT_TRUE(games);
    ASSERT_EQ(games->size(), 3);
    EXPECT_EQ(games->at(0).id, QString::fromLatin1(idA));
    EXPECT_TRUE(gameID(games->at(1).id));
    EXPECT_NE(games->at(1).id, games->at(0).id);
    EXPECT_NE(games->at(2).id, games->at(1).id);
    EXPECT_EQ(games->at(1).favorite, true);
    EXPECT_EQ(decodeLibrary(file), games);
}

TEST(LibraryFile, writesAnyTextReadably)
{
    GameEntry game;
    game.id = QString::fromLatin1(idA);
    QString all;
    for (int c = 0; c <= 0xFFFF; ++c)
        all += QChar(c);
    game.title = all + u"\xD800"_s;
    game.path = u"\xDC00\xD800"_s;
    game.addedAt.seconds = qInf();
    game.playSeconds = qQNaN();
    const auto read = decodeLibrary(encodeLibrary({game}));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->first().title.left(0xD800), all.left(0xD800));
    EXPECT_EQ(read->first().title.mid(0xE000, 0x2000), all.mid(0xE000));
    EXPECT_EQ(read->first().path, u"\uFFFD\uFFFD"_s);
    EXPECT_EQ(read->first().addedAt.seconds, 0);
    EXPECT_EQ(read->first().playSeconds, 0);
}

TEST(LibraryFile, givesBackEveryNumber)
{
    GameEntry game;
    game.id = QString::fromLatin1(idA);
    for (const double number : {0.1, 0.001, -0.05, 1.0 / 3, 5e-324, 1.7976931348623157e308, 9007199254740993.0, 1e15,
                                999999999999.999, -793825200.12, 793825200.123456, 0.3 - 0.1, 1e-4}) {
        game.playSeconds = number;
        game.sessionCount = std::numeric_limits<qint64>::max();
        const auto read = decodeLibrary(encodeLibrary({game}));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->first(), game);
    }
}

struct PortableRow {
    const char *name;
    QString path;
    QString expected;
};
class PortablePath : public testing::TestWithParam<PortableRow> { };

TEST_P(PortablePath, isRelativeOnlyInsideTheFolder)
{
    EXPECT_EQ(portablePath(GetParam().path, u"/home/ann/Velko/../Velko/"_s), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Edges, PortablePath,
                         testing::Values(PortableRow{"inside", "/home/ann/Velko/Games/x.iso", "Games/x.iso"},
                                         PortableRow{"otherDisk", "/mnt/x.iso", "/mnt/x.iso"},
                                         PortableRow{"longerName", "/home/ann/Velko2/x.iso", "/home/ann/Velko2/x.iso"},
                                         PortableRow{"theFolderItself", "/home/ann/Velko", "/home/ann/Velko"}),
                         [](const auto &row) { return row.param.name; });
