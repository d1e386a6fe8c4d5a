#include "platform/linux/InstalledApplications.h"
#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// A home with programs and desktop entries.
class InstalledApplications : public testing::Test {
protected:
    TemporaryHome home;
    const QString own = u".local/share/applications/"_s;
    const QString system = u"usr/share/applications/"_s;
    const QString exports = u".local/share/flatpak/exports/share/applications/"_s;

    QString program(const QString &name) const
    {
        const QString path = home.write(name);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
        return path;
    }
    QString entry(const QString &file, const QString &exec, const QByteArray &more = {}) const
    {
        return home.write(file,
                          "[Desktop Entry]\nType=Application\nName=N\nExec=" + exec.toUtf8().replace('\\', "\\\\")
                              + '\n' + more);
    }
    QStringList ids() const
    {
        QStringList all;
        for (const Application &each : installedApplications(home.places()))
            all += each.id;
        return all;
    }
};

TEST_F(InstalledApplications, carryPathCommandAndKind)
{
    const QString emu = program(u"bin/emu"_s);
    const QString flatpak = program(u"bin/flatpak"_s);
    const QString appImage = home.write(u"Apps/My Emu-1.2.AppImage"_s);
    entry(own + u"emu.desktop"_s, u"env A=b emu -x %f"_s);
    entry(system + u"image.desktop"_s, u'"' + appImage + u"\" %U"_s);
    const QString exported = entry(exports + u"org.x.Emu.desktop"_s, u"flatpak run --command=e org.x.Emu @@ %f @@"_s,
                                   "X-Flatpak=org.x.Emu\n");
    program(u"bin/env"_s);
    const QList<Application> expected{
        {u"emu"_s, u"N"_s, ApplicationKind::native, emu, {u"env"_s, u"A=b"_s, emu, u"-x"_s}},
        {u"image"_s, u"N"_s, ApplicationKind::appImage, appImage, {appImage}},
        {u"org.x.Emu"_s,
         u"N"_s,
         ApplicationKind::flatpak,
         exported,
         {flatpak, u"run"_s, u"--command=e"_s, u"org.x.Emu"_s}}};
    EXPECT_EQ(installedApplications(home.places()), expected);
}

TEST_F(InstalledApplications, hideTheSameIdInLaterFolders)
{
    program(u"bin/emu"_s);
    program(u"bin/old"_s);
    program(u"bin/flatpak"_s);
    entry(own + u"same.desktop"_s, u"emu"_s);
    entry(system + u"same.desktop"_s, u"old"_s);
    entry(own + u"deleted.desktop"_s, u"emu"_s, "Hidden=true\n");
    entry(system + u"deleted.desktop"_s, u"emu"_s);
    entry(own + u"unseen.desktop"_s, u"emu"_s, "NoDisplay=true\n");
    home.write(own + u"broken.desktop"_s, "nothing");
    entry(system + u"broken.desktop"_s, u"old"_s);
    entry(exports + u"org.x.Other.desktop"_s, u"flatpak run org.x.Other"_s);
    const auto all = installedApplications(home.places());
    EXPECT_EQ(ids(), (QStringList{u"same"_s, u"unseen"_s, u"broken"_s, u"org.x.Other"_s}));
    EXPECT_EQ(all.first().command, QStringList{home.path() + u"/bin/emu"_s});
    EXPECT_EQ(all.last().kind, ApplicationKind::flatpak);
}

TEST_F(InstalledApplications, leaveOutWhatCannotBeStarted)
{
    program(u"bin/emu"_s);
    home.write(u"bin/plain"_s);
    entry(own + u"missing.desktop"_s, u"/not/there"_s);
    entry(own + u"plain.desktop"_s, u"plain"_s);
    entry(own + u"tried.desktop"_s, u"emu"_s, "TryExec=absent\n");
    entry(own + u"empty.desktop"_s, u""_s);
    entry(own + u"emptyname.desktop"_s, u"\"\" x"_s);
    entry(own + u"gone.desktop"_s, u"/gone/x.AppImage"_s);
    entry(own + u"link.desktop"_s, u"emu"_s, "Type=Link\n");
    entry(own + u"good.desktop"_s, u"emu"_s, "TryExec=emu\n");
    EXPECT_EQ(ids(), QStringList{u"good"_s});
}

TEST_F(InstalledApplications, nameEntriesInSubFoldersWithADash)
{
    program(u"bin/emu"_s);
    entry(own + u"kde/deep/emu.desktop"_s, u"emu"_s);
    EXPECT_EQ(ids(), QStringList{u"kde-deep-emu"_s});
}

TEST_F(InstalledApplications, surviveOddFiles)
{
    program(u"bin/emu"_s);
    entry(own + u"good.desktop"_s, u"emu"_s);
    const QString folder = home.path() + u'/' + own;
    QFile::link(folder, folder + u"loop"_s);
    QFile::link(folder + u"self.desktop"_s, folder + u"self.desktop"_s);
    QFile::link(u"/dev/zero"_s, folder + u"zero.desktop"_s);
    QDir().mkpath(folder + u"folder.desktop"_s);
    ASSERT_EQ(mkfifo(qPrintable(folder + u"pipe.desktop"_s), 0600), 0); // reading it would wait for ever
    home.write(own + u"huge.desktop"_s, QByteArray(3'000'000, '\n') + "[Desktop Entry]\nType=Application\nExec=emu\n");
    QFile::link(folder + u"good.desktop"_s, folder + u"linked.desktop"_s);
    EXPECT_EQ(ids(), (QStringList{u"good"_s, u"linked"_s}));
}
