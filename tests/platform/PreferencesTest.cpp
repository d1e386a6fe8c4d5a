#include "platform/Preferences.h"
#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Preferences, areEmptyWhenAbsentAndLastBetweenRuns)
{
    const TemporaryHome home;
    const QString file = home.places().preferencesFile();
    {
        Preferences preferences(file);
        EXPECT_FALSE(preferences.get(preference::statsOff));
        EXPECT_EQ(preferences.get(preference::romFolders), QStringList());
        EXPECT_EQ(preferences.get(preference::statsBigPicture), 0);
        EXPECT_FALSE(QFile::exists(file));
        preferences.set(preference::statsOff, true);
        preferences.set(preference::romFolders, {u"/a,b; \"c\""_s, u"/ü"_s});
        preferences.set(preference::emulator(u"gba"_s), u"mgba"_s);
    }
    const Preferences again(file);
    EXPECT_TRUE(again.get(preference::statsOff));
    EXPECT_EQ(again.get(preference::romFolders), (QStringList{u"/a,b; \"c\""_s, u"/ü"_s}));
    EXPECT_EQ(again.get(preference::emulator(u"gba"_s)), u"mgba"_s);
    EXPECT_FALSE(again.contains(preference::emulator(u"gb"_s)));
}

TEST(Preferences, announceChangesAndOnlyChanges)
{
    const TemporaryHome home;
    Preferences preferences(home.places().preferencesFile());
    QStringList changes;
    QObject::connect(&preferences, &Preferences::changed, &preferences, [&](const QString &key) { changes += key; });
    preferences.set(preference::gameSort, u"title"_s);
    preferences.set(preference::gameSort, u"title"_s);
    preferences.remove(preference::gameSort);
    preferences.remove(preference::gameSort);
    EXPECT_EQ(changes, (QStringList{u"gameSort"_s, u"gameSort"_s}));
}

TEST(Preferences, surviveAFileOfNoise)
{
    const TemporaryHome home;
    home.write(u".config/VelkoEmu/preferences.ini"_s, QByteArray(5000, '\xff') + "\n[=]\nstatsOff=banana\n\0x=");
    Preferences preferences(home.places().preferencesFile());
    preferences.get(preference::statsOff);
    preferences.set(preference::onboardingDone, true);
    EXPECT_TRUE(Preferences(home.places().preferencesFile()).get(preference::onboardingDone));
}
