#include "emulators/settings/ConfigFile.h"
#include "fakes/TemporaryHome.h"
#include "library/OrdinaryUser.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Outcome = ConfigFileEdit::Outcome;

class ConfigFile : public testing::Test {
protected:
    static std::optional<QByteArray> twoForOne(const QByteArray &text)
    {
        QByteArray edited = text;
        return edited.replace("k = 1", "k = 2");
    }
    Outcome edit(const QString &path, BackUp backUp = BackUp::no)
    {
        const ConfigFileEdit result = editConfigFile(path, twoForOne, backUp);
        why = english(result.why);
        return result.outcome;
    }
    QStringList names(const QString &folder = {}) const
    {
        return QDir(home.path() + u'/' + folder)
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static struct stat statOf(const QString &file)
    {
        struct stat found = {};
        ::lstat(QFile::encodeName(file).constData(), &found);
        return found;
    }

    const TemporaryHome home;
    QString why;
};

TEST_F(ConfigFile, isWrittenOnlyWhenSomethingChanges)
{
    EXPECT_EQ(edit(home.path() + u"/none.ini"_s), Outcome::missing);
    EXPECT_TRUE(names().isEmpty());
    const QString file = home.write(u"a.ini"_s, "k = 1\r\n");
    EXPECT_EQ(edit(file), Outcome::written);
    EXPECT_EQ(home.read(u"a.ini"_s), "k = 2\r\n");
    const auto before = statOf(file);
    EXPECT_EQ(edit(file), Outcome::unchanged);
    EXPECT_EQ(statOf(file).st_ino, before.st_ino);
    EXPECT_EQ(statOf(file).st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    EXPECT_EQ(names(), QStringList{u"a.ini"_s});
}

TEST_F(ConfigFile, keepsPermissionsOwnerAndLinks)
{
    const QString file = home.write(u"real/a.ini"_s, "k = 1\n");
    ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0640), 0);
    const bool root = ::geteuid() == 0;
    const uid_t owner = root ? 65534 : ::geteuid();
    const gid_t group = root ? 12345 : ::getegid();
    ASSERT_EQ(::chown(QFile::encodeName(file).constData(), owner, group), 0);
    const QString link = home.path() + u"/link.ini"_s;
    ASSERT_TRUE(QFile::link(u"real/a.ini"_s, link));
    EXPECT_EQ(edit(link, BackUp::once), Outcome::written);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(home.read(u"real/a.ini"_s), "k = 2\n");
    for (const QString &each : {file, link + u".velkoemu-backup"_s}) {
        EXPECT_EQ(statOf(each).st_mode & 07777, 0640u) << qPrintable(each);
        EXPECT_EQ(statOf(each).st_uid, owner);
        EXPECT_EQ(statOf(each).st_gid, group);
    }
    EXPECT_TRUE(QFile::link(u"gone"_s, home.path() + u"/dangling.ini"_s));
    EXPECT_EQ(edit(home.path() + u"/dangling.ini"_s), Outcome::missing);
}

TEST_F(ConfigFile, backsUpOnce)
{
    const QString file = home.write(u"a.ini"_s, "k = 1\n");
    EXPECT_EQ(edit(file, BackUp::once), Outcome::written);
    EXPECT_EQ(home.read(u"a.ini.velkoemu-backup"_s), "k = 1\n");
    home.write(u"a.ini"_s, "k = 1\nx = 2\n");
    EXPECT_EQ(edit(file, BackUp::once), Outcome::written);
    EXPECT_EQ(home.read(u"a.ini.velkoemu-backup"_s), "k = 1\n");
}

TEST_F(ConfigFile, leavesHostileFilesAlone)
{
    const QByteArray longLine = "k = 1\n" + QByteArray(10'000'000, 'x');
    EXPECT_EQ(edit(home.write(u"long.ini"_s, longLine)), Outcome::written);
    EXPECT_EQ(home.read(u"long.ini"_s).size(), longLine.size());

    const QList<QByteArray> refused{"k = 1\n" + QByteArray(50'000'000, '\n'), QByteArray("k = 1\n\0", 7),
                                    "k = 1\n\xff\xfe", QByteArray("k\0=\0", 4)};
    for (const QByteArray &content : refused) {
        const QString file = home.write(u"hostile.ini"_s, content);
        EXPECT_EQ(edit(file), Outcome::failed);
        EXPECT_TRUE(why.contains(u"/hostile.ini”"_s) && why.contains(u"then try again."_s)) << qPrintable(why);
        EXPECT_TRUE(home.read(u"hostile.ini"_s) == content);
    }
    QDir(home.path()).mkdir(u"folder.ini"_s);
    EXPECT_EQ(edit(home.path() + u"/folder.ini"_s), Outcome::failed);
    const QString pipe = home.path() + u"/pipe.ini"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(edit(pipe), Outcome::failed) << "does not wait for someone to write";
    const QString odd = home.write(u"odd.ini"_s, "k = 1\n");
    EXPECT_EQ(editConfigFile(odd, [](const QByteArray &) { return std::nullopt; }).outcome, Outcome::failed);
    EXPECT_EQ(names(), (QStringList{u"folder.ini"_s, u"hostile.ini"_s, u"long.ini"_s, u"odd.ini"_s, u"pipe.ini"_s}));
}

TEST_F(ConfigFile, staysWholeWhenItMayNotBeWritten)
{
    const QString file = home.write(u"f/a.ini"_s, "k = 1\n");
    const OrdinaryUser user(home.path());
    for (const QFile::Permissions permissions : {QFile::Permissions(QFile::ReadOwner), QFile::Permissions()}) {
        ASSERT_TRUE(QFile::setPermissions(file, permissions));
        EXPECT_EQ(edit(file), Outcome::failed);
        EXPECT_TRUE(why.contains(u"ermission denied"_s)) << qPrintable(why);
    }
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    const QString folder = home.path() + u"/f"_s;
    ASSERT_TRUE(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(edit(file), Outcome::failed);
    EXPECT_EQ(edit(file, BackUp::once), Outcome::failed);
    ASSERT_TRUE(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_EQ(home.read(u"f/a.ini"_s), "k = 1\n");
    EXPECT_EQ(names(u"f"_s), QStringList{u"a.ini"_s});
}

TEST_F(ConfigFile, staysWithWhoeverReplacesItMeanwhile)
{
    const QString file = home.write(u"a.ini"_s, "k = 1\n");
    const auto replacedMeanwhile = [this](const QByteArray &text) {
        home.write(u"new.ini"_s, "k = 7\n");
        ::rename(QFile::encodeName(home.path() + u"/new.ini"_s).constData(),
                 QFile::encodeName(home.path() + u"/a.ini"_s).constData());
        return twoForOne(text);
    };
    const auto writtenMeanwhile = [this](const QByteArray &text) {
        home.write(u"a.ini"_s, "k = 1\nx = 7\n");
        return twoForOne(text);
    };
    const auto removedMeanwhile = [file](const QByteArray &text) {
        QFile::remove(file);
        return twoForOne(text);
    };
    EXPECT_EQ(editConfigFile(file, replacedMeanwhile).outcome, Outcome::failed);
    EXPECT_EQ(home.read(u"a.ini"_s), "k = 7\n");
    home.write(u"a.ini"_s, "k = 1\n");
    EXPECT_EQ(editConfigFile(file, writtenMeanwhile).outcome, Outcome::failed);
    EXPECT_EQ(home.read(u"a.ini"_s), "k = 1\nx = 7\n");
    EXPECT_EQ(editConfigFile(file, removedMeanwhile).outcome, Outcome::failed);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(ConfigFile, staysWholeOnAFullDisk)
{
    QDir(home.path()).mkdir(u"disk"_s);
    const QByteArray disk = QFile::encodeName(home.path() + u"/disk"_s);
    if (::mount("tmpfs", disk.constData(), "tmpfs", 0, "size=64k") != 0) GTEST_SKIP() << "may not mount here";
    const auto unmount = qScopeGuard([&disk] { ::umount2(disk.constData(), MNT_DETACH); });
    const QByteArray content = "k = 1\n" + QByteArray(30'000, 'x');
    const QString file = home.write(u"disk/a.ini"_s, content);
    QFile filler(home.path() + u"/disk/filler"_s);
    ASSERT_TRUE(filler.open(QFile::WriteOnly | QFile::Unbuffered));
    while (filler.write(QByteArray(4096, 'f')) == 4096) { }
    EXPECT_EQ(edit(file), Outcome::failed);
    EXPECT_TRUE(why.contains(u"No space left on device"_s)) << qPrintable(why);
    EXPECT_EQ(edit(file, BackUp::once), Outcome::failed);
    EXPECT_TRUE(home.read(u"disk/a.ini"_s) == content);
    EXPECT_EQ(names(u"disk"_s), (QStringList{u"a.ini"_s, u"filler"_s}));
    filler.remove();
    EXPECT_EQ(edit(file), Outcome::written);
}

/// Where nothing can be mounted a limit on the size of files stands in for the full disk.
TEST_F(ConfigFile, staysWholeWhenWritingEndsHalfway)
{
    const QByteArray content = "k = 1\n" + QByteArray(300'000, 'x');
    const QString file = home.write(u"a.ini"_s, content);
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit small = before;
    small.rlim_cur = 100'000;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const Outcome outcome = edit(file);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_EQ(outcome, Outcome::failed);
    EXPECT_TRUE(home.read(u"a.ini"_s) == content);
    EXPECT_EQ(names(), QStringList{u"a.ini"_s});
}
