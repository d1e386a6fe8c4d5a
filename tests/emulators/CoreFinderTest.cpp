#include "emulators/finding/CoreFinder.h"
#include "catalog/Console.h"
#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static const InstalledEmulator nativeCopy{
    u"retroarch"_s, ApplicationKind::native, u"/usr/bin/retroarch"_s, {}, {u"/usr/bin/retroarch"_s}};
static const InstalledEmulator flatpakCopy{
    u"retroarch"_s, ApplicationKind::flatpak, u"/x.desktop"_s, u"org.libretro.RetroArch"_s, {}};

TEST(CoreFinder, hasACoreForEveryConsoleThatNamesRetroArch)
{
    for (const Console &console : consoles(Host::linux))
        EXPECT_EQ(coreNames(console.id).isEmpty(), !console.emulators.contains(u"retroarch"_s))
            << qPrintable(console.id);
}

struct ConfigRow {
    const char *test;
    const char *text;
    const char *folder; ///< empty: not set
};
class LibretroDirectory : public testing::TestWithParam<ConfigRow> { };

TEST_P(LibretroDirectory, isReadFromTheConfiguration)
{
    EXPECT_EQ(libretroDirectory(QString::fromUtf8(GetParam().text), u"/home/u"_s).value_or(QString()).toStdString(),
              GetParam().folder);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LibretroDirectory,
    testing::Values(ConfigRow{"quoted", "a = \"1\"\nlibretro_directory = \"/usr/lib/libretro/\"\nb = \"2\"\n",
                              "/usr/lib/libretro"},
                    ConfigRow{"bare", "libretro_directory=/cores", "/cores"},
                    ConfigRow{"home", "libretro_directory = \"~/cores x\"\r\n", "/home/u/cores x"},
                    ConfigRow{"otherKey", "xlibretro_directory = \"/a\"\nlibretro_directory_2 = \"/b\"", ""},
                    ConfigRow{"comment", "# libretro_directory = \"/a\"", ""},
                    ConfigRow{"standard", "libretro_directory = \"default\"", ""},
                    ConfigRow{"besideTheProgram", "libretro_directory = \":/cores\"", ""},
                    ConfigRow{"empty", "libretro_directory = \"\"\n/next", ""},
                    ConfigRow{"cutOff", "libretro_directory = \"", ""}, ConfigRow{"nothing", "", ""}),
    [](const auto &row) { return row.param.test; });

TEST(CoreFinder, looksWhereTheConfigurationSaysFirst)
{
    const TemporaryHome home;
    const QString system = home.write(u"usr/lib/libretro/gambatte_libretro.so"_s);
    EXPECT_EQ(findCore(u"gb"_s, coreFolders(nativeCopy, home.places())), system);
    const QString downloaded = home.write(u".config/retroarch/cores/gambatte_libretro.so"_s);
    EXPECT_EQ(findCore(u"gb"_s, coreFolders(nativeCopy, home.places())), downloaded);
    const QString chosen = home.write(u"mine/gambatte_libretro.so"_s);
    home.write(u".config/retroarch/retroarch.cfg"_s, "libretro_directory = \"~/mine\"\n");
    EXPECT_EQ(findCore(u"gb"_s, coreFolders(nativeCopy, home.places())), chosen);
}

TEST(CoreFinder, prefersTheFirstCoreWhereverItIs)
{
    const TemporaryHome home;
    home.write(u".config/retroarch/cores/fceumm_libretro.so"_s);
    const QString nestopia = home.write(u"usr/lib/libretro/nestopia_libretro.so"_s);
    EXPECT_EQ(findCore(u"nes"_s, coreFolders(nativeCopy, home.places())), nestopia);
    EXPECT_EQ(findCore(u"n64"_s, coreFolders(nativeCopy, home.places())), std::nullopt);
    EXPECT_EQ(findCore(u"ps2"_s, coreFolders(nativeCopy, home.places())), std::nullopt);
}

TEST(CoreFinder, aFlatpakSeesItsOwnCoresOnly)
{
    const TemporaryHome home;
    home.write(u"usr/lib/libretro/gambatte_libretro.so"_s);
    home.write(u".config/retroarch/cores/gambatte_libretro.so"_s);
    EXPECT_EQ(findCore(u"gb"_s, coreFolders(flatpakCopy, home.places())), std::nullopt);
    const QString own = home.write(u".var/app/org.libretro.RetroArch/config/retroarch/cores/gambatte_libretro.so"_s);
    EXPECT_EQ(findCore(u"gb"_s, coreFolders(flatpakCopy, home.places())), own);
}

TEST(CoreFinder, anAppImageMayCarryItsOwnHome)
{
    const TemporaryHome home;
    const QString file = home.write(u"AppImages/RetroArch-Linux-x86_64.AppImage"_s);
    const InstalledEmulator copy{u"retroarch"_s, ApplicationKind::appImage, file, {}, {file}};
    EXPECT_EQ(retroArchFolder(copy, home.places()), home.path() + u"/.config/retroarch"_s);
    const QString core =
        home.write(u"AppImages/RetroArch-Linux-x86_64.AppImage.home/.config/retroarch/cores/snes9x_libretro.so"_s);
    EXPECT_EQ(findCore(u"snes"_s, coreFolders(copy, home.places())), core);
}
