#include "platform/FileIndex.h"
#include "fakes/TemporaryHome.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/NameSearch.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

struct PatternRow {
    const char *name;
    QString text, pattern;
};
class LiteralPattern : public testing::TestWithParam<PatternRow> { };
TEST_P(LiteralPattern, escapesWhatIsSpecial)
{
    EXPECT_EQ(literalPattern(GetParam().text), GetParam().pattern);
}
INSTANTIATE_TEST_SUITE_P(Edges, LiteralPattern,
                         testing::Values(PatternRow{"plain", u"a b.gba"_s, u"a b.gba"_s},
                                         PatternRow{"stars", u"*a?"_s, u"\\*a\\?"_s},
                                         PatternRow{"brackets", u"a [!].gba"_s, u"a \\[!\\].gba"_s},
                                         PatternRow{"backslash", u"a\\"_s, u"a\\\\"_s}),
                         [](const auto &row) { return row.param.name; });

struct DiscardedRow {
    const char *name;
    QString path;
    bool discarded;
};
class IsDiscarded : public testing::TestWithParam<DiscardedRow> { };
TEST_P(IsDiscarded, knowsTrashAndCaches)
{
    EXPECT_EQ(isDiscarded(GetParam().path, linuxPlaces(u"/home/ana"_s, {})), GetParam().discarded) << GetParam().name;
}
INSTANTIATE_TEST_SUITE_P(
    Edges, IsDiscarded,
    testing::Values(DiscardedRow{"game", u"/home/ana/Games/a.gba"_s, false},
                    DiscardedRow{"trash", u"/home/ana/.local/share/Trash/files/a.gba"_s, true},
                    DiscardedRow{"trashItself", u"/home/bo/.local/share/Trash"_s, true},
                    DiscardedRow{"trashOfAMount", u"/media/usb/.Trash-1000/files/a.gba"_s, true},
                    DiscardedRow{"sharedTrash", u"/media/usb/.Trash/1000/files/a.gba"_s, true},
                    DiscardedRow{"folderNamedTrash", u"/home/ana/Trash/a.gba"_s, false},
                    DiscardedRow{"cache", u"/home/ana/.cache/x/a.gba"_s, true},
                    DiscardedRow{"nameOnlyBegins", u"/home/ana/.cached/a.gba"_s, false},
                    DiscardedRow{"flatpakCache", u"/home/ana/.var/app/org.x.Emu/cache/a.gba"_s, true},
                    DiscardedRow{"flatpakData", u"/home/ana/.var/app/org.x.Emu/data/cache/a.gba"_s, false},
                    DiscardedRow{"mac", u"/Users/ana/Library/Caches/a.gba"_s, true}),
    [](const auto &row) { return row.param.name; });

/// A home with odd names in it, known to a private database, found with and without plocate.
class LinuxFileIndex : public testing::TestWithParam<bool> {
protected:
    TemporaryHome home;
    const QString folder = home.path() + u"/Games"_s;
    const QString database = home.path() + u"/locate.db"_s;
    const bool withIndex = GetParam();

    void SetUp() override
    {
        const QStringList programs{u"/usr/bin"_s, u"/bin"_s};
        if (withIndex && QStandardPaths::findExecutable(u"plocate"_s, programs).isEmpty())
            GTEST_SKIP() << "plocate is not installed";
    }
    void index() const
    {
        if (!withIndex) return;
        const QString updater = QStandardPaths::findExecutable(u"updatedb.plocate"_s, {u"/usr/sbin"_s});
        ASSERT_EQ(QProcess::execute(updater,
                                    {u"-U"_s, home.path(), u"-o"_s, database, u"--prunepaths"_s, u""_s,
                                     u"--prunenames"_s, u""_s, u"--require-visibility"_s, u"no"_s}),
                  0);
    }
    QStringList named(const QString &name) const
    {
        Places places = home.places();
        if (withIndex) places.programDirs += u"/usr/bin"_s;
        QStringList found =
            makeFileIndex(places, database)->named(name, withIndex ? QStringList() : QStringList{home.path(), folder});
        found.sort();
        return found;
    }
    QStringList files(const QStringList &names) const
    {
        QStringList all;
        for (const QString &name : names)
            all += home.write(u"Games/"_s + name);
        all.sort();
        return all;
    }
};
INSTANTIATE_TEST_SUITE_P(Ways, LinuxFileIndex, testing::Bool(),
                         [](const auto &row) { return row.param ? "withIndex" : "withoutIndex"; });

TEST_P(LinuxFileIndex, findsExactlyTheName)
{
    const QStringList names{
        u"a.gba"_s, u"*.gba"_s, u"[a].gba"_s, u"-d"_s, u"x\ny.gba"_s, u"Pokémon é.gba"_s, u"a\\b$(id).gba"_s, u"a\\"_s,
        u"é"_s,     u"x🎮"_s,    u"!"_s,       u"^"_s,  u"]"_s,        u"'\"; echo.gba"_s};
    files(names);
    files({u"A.gba"_s, u"aa.gba"_s, u"a.gba.bak"_s, u"sub/b.gba"_s});
    index();
    for (const QString &name : names)
        EXPECT_EQ(named(name), QStringList{folder + u'/' + name}) << qPrintable(name);
}

TEST_P(LinuxFileIndex, findsFilesAndFoldersEachOnce)
{
    const QStringList all = files({u"one/game"_s, u"two/game/eboot.bin"_s, u"three/four/game"_s});
    index();
    EXPECT_EQ(named(u"game"_s), (QStringList{all[0], all[1], folder + u"/two/game"_s}));
}

TEST_P(LinuxFileIndex, leavesOutTrashCachesAndWhatIsGone)
{
    const QString gone = home.write(u"Games/gone/a.gba"_s);
    const QString kept = home.write(u"Games/kept/a.gba"_s);
    home.write(u".local/share/Trash/files/a.gba"_s);
    home.write(u".cache/a.gba"_s);
    home.write(u"Games/.Trash-1000/files/a.gba"_s);
    index();
    QFile::remove(gone);
    EXPECT_EQ(named(u"a.gba"_s), QStringList{kept});
}

TEST_P(LinuxFileIndex, takesNoNameThatIsAPath)
{
    files({u"a.gba"_s});
    index();
    for (const QString &name : {u""_s, u"."_s, u".."_s, u"Games/a.gba"_s, u"a.gba"_s + QChar(), QString(5000, u'x')})
        EXPECT_EQ(named(name), QStringList());
}

TEST_P(LinuxFileIndex, findsByBeginningAndEndInTheIndexOnly)
{
    const QString image = home.write(u"Apps/mGBA-0.10.5-appimage-x64.appimage"_s);
    home.write(u"Apps/mgba.zip"_s);
    home.write(u"Apps/not-mgba.AppImage"_s);
    QDir(home.path()).mkpath(u"Apps/mgba-folder.AppImage"_s);
    index();
    Places places = home.places();
    if (withIndex) places.programDirs += u"/usr/bin"_s;
    const auto files = makeFileIndex(places, database);
    EXPECT_EQ(files->beginningWith(u"mgba-"_s, u".AppImage"_s), withIndex ? QStringList{image} : QStringList());
    EXPECT_EQ(files->beginningWith(u"mgba-*"_s, u".AppImage"_s), QStringList());
    EXPECT_EQ(files->beginningWith(u""_s, u""_s), QStringList());
}

TEST(FileIndex, walksWhenTheIndexKnowsNothing)
{
    const TemporaryHome home;
    const QString game = home.write(u"Games/a.gba"_s);
    Places places = home.places();
    places.programDirs += u"/usr/bin"_s;
    const auto files = makeFileIndex(places, home.path() + u"/no.db"_s);
    EXPECT_EQ(files->named(u"a.gba"_s, {home.path()}), QStringList{game});
}

TEST(FileIndex, surviveAProgramThatPrintsForEver)
{
    const TemporaryHome home;
    const QString program = home.write(u"bin/plocate"_s, "#!/bin/sh\nexec yes /etc/passwd\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(makeFileIndex(home.places())->named(u"passwd"_s, {}), QStringList());
    EXPECT_LT(time.elapsed(), 4000);
}

TEST(SearchFolders, staysWithinItsLimits)
{
    const TemporaryHome home;
    const QString near = home.write(u"a/x"_s);
    const QString far = home.write(u"a/b/c/x"_s);
    const auto search = [&](const SearchLimits &limits) {
        return searchFolders(u"x"_s, {home.path()}, home.places(), limits);
    };
    EXPECT_EQ(search({}), (QStringList{near, far}));
    EXPECT_EQ(search({.levels = 4}), (QStringList{near, far}));
    EXPECT_EQ(search({.levels = 3}), QStringList{near});
    EXPECT_EQ(search({.entries = 3}), QStringList{near});
    EXPECT_EQ(search({.time = 0ms}), QStringList());
}

TEST(SearchFolders, followsNoLinksButThoseItIsGiven)
{
    const TemporaryHome home;
    const QString game = home.write(u"real/x"_s);
    QDir(home.path()).mkpath(u"given"_s);
    QFile::link(home.path(), home.path() + u"/real/loop"_s);
    QFile::link(game, home.path() + u"/given/x"_s);
    QFile::link(u"/nowhere"_s, home.path() + u"/given/broken"_s);
    QFile::link(home.path() + u"/real"_s, home.path() + u"/given/linked"_s);
    EXPECT_EQ(searchFolders(u"x"_s, {home.path() + u"/given"_s}, home.places()),
              QStringList{home.path() + u"/given/x"_s});
    EXPECT_EQ(searchFolders(u"broken"_s, {home.path()}, home.places()), QStringList());
    EXPECT_EQ(searchFolders(u"x"_s, {home.path() + u"/given/linked"_s, u"/not/there"_s}, home.places()),
              QStringList{home.path() + u"/given/linked/x"_s});
}
