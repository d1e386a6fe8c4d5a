#include "ui/facts/PlaySettings.h"

#include "ui/ListHouse.h"

#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct SettingsHouse : ListHouse {
    PlaySettings settings{preferences, translator};

    QStringList screens() const
    {
        QStringList all;
        for (const QVariant &each : settings.screens())
            all += each.toMap()[u"value"_s].toString();
        return all;
    }
};
}

TEST(PlaySettings, areKeptAtOnceAndWithoutAWishAreTheGivenOnes)
{
    SettingsHouse house;
    PlaySettings &settings = house.settings;
    EXPECT_EQ(settings.quality(), u"medium");
    EXPECT_FALSE(settings.fps60());
    EXPECT_TRUE(settings.setsUpController());
    EXPECT_EQ(settings.screen(), u"");

    settings.setQuality(u"splendid"_s);
    EXPECT_FALSE(house.preferences.contains(preference::defaultQuality));
    settings.setQuality(u"maximum"_s);
    settings.setFps60(true);
    settings.setSetsUpController(false);
    EXPECT_EQ(house.preferences.get(preference::defaultQuality), u"maximum");
    EXPECT_TRUE(house.preferences.get(preference::default60FPS));
    EXPECT_FALSE(settings.setsUpController());
}

TEST(PlaySettings, offerTheScreensAndKeepOneThatIsOff)
{
    SettingsHouse house;
    QStringList expected{u""_s};
    for (const QScreen *each : QGuiApplication::screens())
        expected += each->name();
    EXPECT_EQ(house.screens(), expected);
    house.settings.setScreen(u"HDMI-9"_s);
    EXPECT_EQ(house.screens(), expected + QStringList{u"HDMI-9"_s});
    house.settings.setScreen({});
    EXPECT_FALSE(house.preferences.contains(preference::playDisplay));
    EXPECT_EQ(house.screens(), expected);
}
