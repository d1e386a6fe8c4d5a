#include "app/PreferenceMigration.h"

#include "fakes/TemporaryHome.h"
#include "platform/Preferences.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PreferenceMigration, fillsInWhatIsAbsentOnceAndForAll)
{
    const TemporaryHome home;
    {
        QSettings legacy(home.places().legacyPreferencesFile(), QSettings::IniFormat);
        legacy.setValue(u"onboardingDone"_s, true);
        legacy.setValue(u"gameSort"_s, u"title"_s);
        legacy.setValue(u"romFolders"_s, QStringList{u"/a"_s, u"/b"_s});
    }
    Preferences preferences(home.places().preferencesFile());
    preferences.set(preference::gameSort, u"played"_s);

    migrateLegacyPreferences(home.places(), preferences);
    EXPECT_TRUE(preferences.get(preference::onboardingDone));
    EXPECT_EQ(preferences.get(preference::gameSort), u"played"_s);
    EXPECT_EQ(preferences.get(preference::romFolders), (QStringList{u"/a"_s, u"/b"_s}));

    preferences.remove(preference::onboardingDone);
    migrateLegacyPreferences(home.places(), preferences);
    EXPECT_FALSE(preferences.contains(preference::onboardingDone));
}

TEST(PreferenceMigration, isOverWhenThereIsNothingToTakeOver)
{
    const TemporaryHome home;
    Preferences preferences(home.places().preferencesFile());
    migrateLegacyPreferences(home.places(), preferences);
    EXPECT_TRUE(preferences.get(preference::migratedFromLegacyIdentifier));
}
