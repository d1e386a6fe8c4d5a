#include "Library.h"
#include "Program.h"

#include <QDir>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Creates an empty file under a name of any bytes.
static void touch(const QString &folder, const QByteArray &name)
{
    QDir().mkpath(folder);
    const QByteArray path = QFile::encodeName(folder) + '/' + name;
    const int file = open(path.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
    ASSERT_GE(file, 0) << path.constData();
    close(file);
}

/// A file whose name is not text. Qt's temporary folder cannot remove it, so it goes with this object.
struct BrokenName {
    QByteArray path;
    explicit BrokenName(const QString &folder) : path(QFile::encodeName(folder) + "/broken \xff\xfe name.gba")
    {
        touch(folder, "broken \xff\xfe name.gba");
    }
    ~BrokenName() { unlink(path.constData()); }
};

/// Names that trip up programs which hand paths to a shell, to printf or to a terminal, without their extension.
static QByteArrayList awkwardNames()
{
    return {"it's \"quoted\"", "two\nlines",         "$(touch pwned)", "`touch pwned`", "-rf",
            "--help",          "a;touch pwned;",     "100%s %n %@",    "\x1b[31mred",   " leading and trailing ",
            "back\\slash",     "*?[star]",           "Pokémon é",      "日本語の題名",  "😀",
            "tab\tin it",      QByteArray(251, 'x'), "{brace,s}",      "~user",         "&background&"};
}

TEST(Scan, findsHundredsOfFilesUnderAnyName)
{
    const VirtualDisplay display;
    const QString games = display.home() + u"/Ge mes $(id) 'q'"_s;
    struct Shelf {
        QString folder;
        const char *extension;
        const char *console;
    };
    const QList<Shelf> shelves = {{u"Nintendo - Game Boy"_s, ".gb", "gb"},
                                  {u"Game Boy Color"_s, ".gb", "gbc"},
                                  {u"mixed/deep/deeper"_s, ".gba", "gba"},
                                  {u"mixed"_s, ".nes", "nes"},
                                  {u"mixed"_s, ".sfc", "snes"},
                                  {u"Roms/PS2 Games"_s, ".iso", "ps2"},
                                  {u"Sony - PlayStation 2"_s, ".chd", "ps2"},
                                  {u"Nintendo 64 (USA)"_s, ".z64", "n64"}};
    QMap<QString, QString> expected;
    for (const Shelf &shelf : shelves) {
        const QString folder = games + u'/' + shelf.folder;
        for (int i = 0; i < 16; ++i)
            touch(folder, QByteArray("Game ") + QByteArray::number(i) + " (Europe)" + shelf.extension);
        for (const QByteArray &name : awkwardNames())
            touch(folder, name + shelf.extension);
        for (const QString &file : QDir(folder).entryList({u"*"_s + QString::fromLatin1(shelf.extension)}, QDir::Files))
            expected.insert(folder + u'/' + file, QString::fromLatin1(shelf.console));
    }
    touch(games, "no console.txt");
    touch(games + u"/mixed"_s, ".hidden.gba");
    ASSERT_TRUE(QFile::link(games, games + u"/mixed/loop"_s));
    QDir().mkpath(games + u"/a folder.gba"_s);

    Program scan(display, {u"scan"_s, games});
    ASSERT_TRUE(scan.ends(20s));
    EXPECT_EQ(scan.status(), 0) << scan.errors().constData();
    EXPECT_TRUE(scan.output().contains(QByteArray::number(expected.size()))) << scan.output().constData();

    Program list(display, {u"list"_s, u"--json"_s});
    ASSERT_TRUE(list.ends(10s));
    EXPECT_EQ(list.status(), 0) << list.errors().constData();
    const auto listed = gamesOf(list.output());
    ASSERT_TRUE(listed);
    QMap<QString, QString> found;
    for (const QJsonValue game : *listed)
        found.insert(game[u"path"].toString(), game[u"consoleID"].toString());
    EXPECT_GT(expected.size(), 280);
    for (auto [path, console] : expected.asKeyValueRange())
        EXPECT_EQ(found.value(path).toStdString(), console.toStdString()) << qPrintable(path);
    EXPECT_EQ(found.size(), expected.size());
    EXPECT_EQ(libraryOf(display), listed);
    EXPECT_FALSE(QFile::exists(display.home() + u"/pwned"_s));

    const BrokenName broken(games + u"/mixed"_s);
    Program again(display, {u"scan"_s, games});
    ASSERT_TRUE(again.ends(20s));
    EXPECT_EQ(again.status(), 0) << again.errors().constData();
    EXPECT_TRUE(again.output().contains("/mixed/broken ")) << again.output().constData(); // left out, and said so
    EXPECT_EQ(libraryOf(display), listed);
}

struct UsageRow {
    const char *name;
    QStringList arguments;
    int status;
};
class CommandLineStatus : public testing::TestWithParam<UsageRow> { };

TEST_P(CommandLineStatus, isOneSentence)
{
    const VirtualDisplay display;
    Program call(display, GetParam().arguments);
    ASSERT_TRUE(call.ends(10s));
    EXPECT_EQ(call.status(), GetParam().status);
    EXPECT_EQ(call.errors().count('\n'), 1) << call.errors().constData();
    EXPECT_EQ(call.output(), QByteArray());
}

INSTANTIATE_TEST_SUITE_P(Edges, CommandLineStatus,
                         testing::Values(UsageRow{"unknownCommand", {u"dance"_s}, 2},
                                         UsageRow{"unknownOption", {u"list"_s, u"--yaml"_s}, 2},
                                         UsageRow{"noGame", {u"play"_s}, 2},
                                         UsageRow{"unknownGame", {u"play"_s, u"No such game"_s}, 1},
                                         UsageRow{"unknownFile", {u"add"_s, u"/no/such/file.gba"_s}, 1}),
                         [](const auto &row) { return row.param.name; });
