#include "fakes/TemporaryHome.h"
#include "platform/Preferences.h"
#include "platform/VelkoFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Places, followTheHostsFolders)
{
    const Places mac = macPlaces(u"/Users/ana"_s);
    EXPECT_EQ(mac.libraryFile(), u"/Users/ana/Library/Application Support/VelkoEmu/library.json"_s);

    const Places linux_ = linuxPlaces(u"/home/ana"_s, {});
    EXPECT_EQ(linux_.libraryFile(), u"/home/ana/.local/share/VelkoEmu/library.json"_s);
    EXPECT_EQ(linux_.preferencesFile(), u"/home/ana/.config/VelkoEmu/preferences.ini"_s);
    EXPECT_EQ(linux_.legacyPreferencesFile(), u"/home/ana/.config/VelkoEmu/com.tarn.VelkoEmu.ini"_s);
    EXPECT_EQ(linux_.logFolder(), u"/home/ana/.local/state/VelkoEmu"_s);
    EXPECT_TRUE(linux_.programDirs.contains(u"/usr/games"_s));
}

TEST(Places, takeXdgVariablesOnlyWhenAbsolute)
{
    QProcessEnvironment environment;
    environment.insert(u"XDG_DATA_HOME"_s, u"/big/data/"_s);
    environment.insert(u"XDG_CONFIG_HOME"_s, u"relative"_s);
    environment.insert(u"XDG_STATE_HOME"_s, QString());
    const Places places = linuxPlaces(u"/home/ana"_s, environment);
    EXPECT_EQ(places.data, u"/big/data"_s);
    EXPECT_EQ(places.config, u"/home/ana/.config"_s);
    EXPECT_EQ(places.state, u"/home/ana/.local/state"_s);
}

TEST(Places, findThePicturesFolderOfTheDesktop)
{
    const TemporaryHome home;
    EXPECT_EQ(home.places().pictures, home.path() + u"/Pictures"_s);
    home.write(u".config/user-dirs.dirs"_s,
               "# comment\nXDG_MUSIC_DIR=\"$HOME/M\"\nXDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
    EXPECT_EQ(home.places().pictures, home.path() + u"/Bilder"_s);
}

TEST(VelkoFolder, followsItsThreeRules)
{
    const TemporaryHome home;
    Preferences preferences(home.places().preferencesFile());
    EXPECT_EQ(velkoFolder(home.places(), preferences), home.path() + u"/Velko"_s);
    QDir(home.path()).mkpath(u"Velko"_s);
    QDir(home.path()).mkpath(u"VelkoEmu"_s);
    EXPECT_EQ(velkoFolder(home.places(), preferences), home.path() + u"/VelkoEmu"_s);
    preferences.set(preference::velkoFolder, u"/not/there"_s);
    EXPECT_EQ(velkoFolder(home.places(), preferences), u"/not/there"_s);
}
