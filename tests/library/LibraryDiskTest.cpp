#include "LibraryHouse.h"
#include "OrdinaryUser.h"

#include "base/DayKey.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static const QString setAsideName = u"library.json.unreadable-2026-03-14 20.00.00"_s;

TEST(LibraryDisk, setsAnUnreadableFileAsideBeforeTheFirstSave)
{
    LibraryHouse house;
    house.writeFile(u"library.json"_s, "[{\"id\":");
    LibraryStore &store = house.open();
    EXPECT_EQ(store.count(), 0);
    EXPECT_EQ(store.setAsideFile(), house.file(setAsideName));
    EXPECT_EQ(house.dataFiles(), QStringList{u"library.json"_s});

    house.clock.advance(1h);
    store.add({existingGame(house, u"New"_s)});
    EXPECT_EQ(house.readFile(setAsideName), "[{\"id\":");
    EXPECT_EQ(house.onDisk().size(), 1);
    store.setFavorite(store.games()[0].id, true);
    EXPECT_EQ(house.dataFiles(), (QStringList{u"library.json"_s, u"library.json.backup-2026-03-14"_s, setAsideName}));
    EXPECT_EQ(store.setAsideFile(), house.file(setAsideName));
    EXPECT_EQ(house.open().setAsideFile(), QString());
}

TEST(LibraryDisk, neverReplacesAFileThatWasSetAside)
{
    LibraryHouse house;
    for (const char *content : {"first", "second", "third"}) {
        house.writeFile(u"library.json"_s, content);
        house.open().add({existingGame(house, u"New"_s)});
    }
    EXPECT_EQ(house.readFile(setAsideName), "first");
    EXPECT_EQ(house.readFile(setAsideName + u" 2"_s), "second");
    EXPECT_EQ(house.readFile(setAsideName + u" 3"_s), "third");
}

TEST(LibraryDisk, setsAsideWhateverIsNoFile)
{
    LibraryHouse house;
    house.writeFile(u"library.json/inside"_s, "x");
    LibraryStore &store = house.open();
    store.add({existingGame(house, u"New"_s)});
    EXPECT_EQ(house.readFile(setAsideName + u"/inside"_s), "x");
    EXPECT_EQ(house.onDisk().size(), 1);
}

TEST(LibraryDisk, restoresTheNewestCopyThatDecodes)
{
    LibraryHouse house;
    LibraryStore &first = house.open();
    const GameEntry one = existingGame(house, u"One"_s), two = existingGame(house, u"Two"_s);
    first.add({one});
    EXPECT_EQ(first.newestBackup(), QString());
    house.clock.advance(24h);
    first.add({two}); // keeps a copy with the first game alone
    EXPECT_EQ(first.newestBackup(), house.file(u"library.json.backup-2026-03-15"_s));
    house.writeFile(u"library.json"_s, "broken");
    house.writeFile(u"library.json.backup-2026-03-16"_s, "broken as well");
    house.writeFile(u"library.json.backup-today"_s, "[]");

    LibraryStore &store = house.open();
    EXPECT_EQ(store.newestBackup(), house.file(u"library.json.backup-2026-03-15"_s));
    const GameEntry three = existingGame(house, u"Three"_s);
    store.add({three, one});
    int replaced = 0;
    QObject::connect(&store, &LibraryStore::libraryReplaced, &store, [&] { ++replaced; });
    store.restoreBackup();
    EXPECT_EQ(replaced, 1);
    EXPECT_EQ(store.games(), (QList{one, three}));
    EXPECT_EQ(house.onDisk(), store.games());
    EXPECT_EQ(store.setAsideFile(), QString());
    EXPECT_TRUE(QFile::exists(house.file(u"library.json.unreadable-2026-03-15 20.00.00"_s)));
}

TEST(LibraryDisk, saysWhenThereIsNothingToRestore)
{
    LibraryHouse house;
    house.writeFile(u"library.json"_s, "broken");
    LibraryStore &store = house.open();
    store.restoreBackup();
    EXPECT_TRUE(store.lastError());
    EXPECT_EQ(house.readFile(u"library.json"_s), "broken");
    EXPECT_FALSE(store.setAsideFile().isEmpty());
}

TEST(LibraryDisk, keepsTheCopiesOfSevenDays)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    const GameEntry game = existingGame(house, u"One"_s);
    store.add({game});
    for (int day = 0; day < 9; ++day) {
        house.clock.advance(24h);
        store.setTitle(game.id, u"First on day %1"_s.arg(day));
        store.setTitle(game.id, u"Second on day %1"_s.arg(day));
    }
    const QStringList files = house.dataFiles();
    ASSERT_EQ(files.size(), 8);
    EXPECT_EQ(files[1], u"library.json.backup-2026-03-17"_s);
    const auto copy = decodeLibrary(house.readFile(u"library.json.backup-2026-03-23"_s));
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->first().title, u"Second on day 7"_s);
}

TEST(LibraryDisk, leavesASymbolicLinkALink)
{
    for (const bool dangling : {false, true}) {
        LibraryHouse house;
        const QString real = house.home.path() + u"/Sync/velko.json"_s;
        house.home.write(u"Sync/velko.json"_s, "[]");
        if (dangling) QFile::remove(real);
        QDir().mkpath(house.places.dataFolder());
        QFile::link(real, house.home.path() + u"/Sync/step"_s);
        QFile::link(house.home.path() + u"/Sync/step"_s, house.file(u"library.json"_s));
        LibraryStore &store = house.open();
        store.add({existingGame(house, u"One"_s)});
        store.setFavorite(store.games()[0].id, true);
        EXPECT_TRUE(QFileInfo(house.file(u"library.json"_s)).isSymLink());
        EXPECT_FALSE(QFileInfo(real).isSymLink());
        EXPECT_EQ(house.onDisk(), store.games());
    }
}

TEST(LibraryDisk, keepsTheOldFileWhenTheDiskIsFull)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    const GameEntry game = existingGame(house, u"One"_s);
    store.add({game});
    const QByteArray before = house.readFile(u"library.json"_s);

    rlimit limit;
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{100, limit.rlim_max};
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    store.setTitle(game.id, u"Unsaved"_s);
    ASSERT_TRUE(store.lastError());
    store.dismissError();
    store.setTitle(game.id, u"Still unsaved"_s);
    EXPECT_FALSE(store.lastError()) << "told twice";
    EXPECT_EQ(house.readFile(u"library.json"_s), before);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(store.games()[0].title, u"Still unsaved"_s);
    store.setFavorite(game.id, true);
    EXPECT_EQ(house.onDisk(), store.games());
    EXPECT_EQ(house.dataFiles(), (QStringList{u"library.json"_s, u"library.json.backup-2026-03-14"_s}));
}

TEST(LibraryDisk, writesNothingOverAFileThatItCanNeitherReadNorMove)
{
    LibraryHouse house;
    const GameEntry game = existingGame(house, u"One"_s);
    house.writeFile(u"library.json"_s, encodeLibrary({game}));
    house.home.write(u".config/VelkoEmu/preferences.ini"_s);
    const OrdinaryUser user(house.home.path());
    const QByteArray file = QFile::encodeName(house.file(u"library.json"_s));
    const QByteArray folder = QFile::encodeName(house.places.dataFolder());
    ASSERT_EQ(::chmod(file.constData(), 0), 0);
    ASSERT_EQ(::chmod(folder.constData(), 0555), 0);

    LibraryStore &store = house.open();
    EXPECT_EQ(store.count(), 0);
    EXPECT_EQ(store.setAsideFile(), house.file(setAsideName));
    const GameEntry other = existingGame(house, u"Other"_s);
    store.add({other});
    EXPECT_TRUE(store.lastError());
    EXPECT_EQ(house.dataFiles(), QStringList{u"library.json"_s});

    ASSERT_EQ(::chmod(folder.constData(), 0755), 0);
    store.setFavorite(other.id, true);
    EXPECT_EQ(house.onDisk(), store.games());
    ASSERT_EQ(::chmod(QFile::encodeName(house.file(setAsideName)).constData(), 0644), 0);
    EXPECT_EQ(decodeLibrary(house.readFile(setAsideName)), QList{game});
}

TEST(LibraryDisk, writesThePortableCopyIntoAnOrganizedFolder)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    GameEntry inside = existingGame(house, u"One"_s);
    inside.path = house.home.write(u"Velko/Games/x.iso"_s);
    const GameEntry outside = existingGame(house, u"Two"_s);
    store.add({inside, outside});
    EXPECT_FALSE(QFile::exists(house.home.path() + u"/Velko/Velko Library.json"_s));

    house.home.write(u"Velko/VelkoEmu Library.json"_s, "older");
    house.preferences.set(preference::folderOrganized, true);
    store.setFavorite(inside.id, true);
    const auto copy = decodeLibrary(house.home.read(u"Velko/Velko Library.json"_s));
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->at(0).path, u"Games/x.iso"_s);
    EXPECT_EQ(copy->at(1).path, outside.path);
    EXPECT_FALSE(QFile::exists(house.home.path() + u"/Velko/VelkoEmu Library.json"_s));

    QDir(house.home.path() + u"/Velko"_s).removeRecursively();
    store.setFavorite(inside.id, false);
    EXPECT_FALSE(QFile::exists(house.home.path() + u"/Velko"_s));
    EXPECT_FALSE(store.lastError());
}

TEST(LibraryDisk, keepsThePortableCopyThatAnUnreadableLibraryCanNotReplace)
{
    LibraryHouse house;
    house.preferences.set(preference::folderOrganized, true);
    house.home.write(u"Velko/Velko Library.json"_s, "earlier");
    house.writeFile(u"library.json"_s, "[");
    LibraryStore &store = house.open();
    store.add({existingGame(house, u"One"_s)});
    store.add({existingGame(house, u"Two"_s)});
    const QString kept = u"Velko/Velko Library.json.backup-"_s + dayKey(house.clock.present);
    EXPECT_EQ(house.home.read(kept), "earlier");
    EXPECT_EQ(decodeLibrary(house.home.read(u"Velko/Velko Library.json"_s))->size(), 2);
}

/// Saves without end, telling each save through the pipe.
[[noreturn]] static void saveForEver(const Places &places, const Preferences &preferences, int pipe)
{
    LibraryDisk disk(places, preferences);
    QList<GameEntry> games = disk.read(QDateTime::currentDateTime());
    for (int round = 0;; ++round) {
        for (GameEntry &game : games)
            game.title = u"Saved in round %1"_s.arg(round);
        const QDateTime day = QDateTime::currentDateTime().addDays(round / 3);
        if (!disk.write(games, day) || ::write(pipe, "x", 1) != 1) ::_exit(1);
    }
}

TEST(LibraryDisk, isReadableWheneverTheProgramIsKilled)
{
    LibraryHouse house;
    QList<GameEntry> games(300);
    for (GameEntry &game : games)
        game.id = newGameID();
    house.writeFile(u"library.json"_s, encodeLibrary(games));
    int saves = 0;
    for (int child = 0; saves < 200; ++child) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t pid = ::fork();
        if (pid == 0) saveForEver(house.places, house.preferences, ends[1]);
        ::close(ends[1]);
        char save;
        for (int i = 0; i < 15 && ::read(ends[0], &save, 1) == 1; ++i)
            ++saves;
        ::usleep(useconds_t((child * 7919) % 3000)); // into the next save, at another place each time
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
        ::close(ends[0]);
        ASSERT_EQ(house.onDisk().size(), games.size());
    }
    for (const QString &name : house.dataFiles().filter(u"backup"_s))
        EXPECT_TRUE(decodeLibrary(house.readFile(name))) << name.toStdString();
}
