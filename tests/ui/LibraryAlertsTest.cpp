#include "ui/LibraryAlerts.h"

#include "ui/ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LibraryAlerts, nameTheUnreadableFileAndItsCopyUntilTheUserGoesOn)
{
    ListHouse house;
    house.store.reset();
    house.writeFile(u"library.json"_s, "[{");
    house.writeFile(u"library.json.backup-2026-03-02"_s, encodeLibrary({house.game(u"Saved"_s, u"gb"_s)}));
    LibraryAlerts alerts(house.open(), house.translator);
    EXPECT_TRUE(alerts.setAsideText().contains(QFileInfo(house.store->setAsideFile()).fileName()));
    EXPECT_EQ(alerts.restoreText(), u"Restore the copy of 2 Mar 2026"_s);
    alerts.keepGoing();
    EXPECT_EQ(alerts.setAsideText(), QString());
}

TEST(LibraryAlerts, forgetTheUnreadableFileOnceTheCopyIsBack)
{
    ListHouse house;
    house.store.reset();
    house.writeFile(u"library.json"_s, "[{");
    house.writeFile(u"library.json.backup-2026-03-02"_s, encodeLibrary({house.game(u"Saved"_s, u"gb"_s)}));
    LibraryAlerts alerts(house.open(), house.translator);
    house.store->restoreBackup();
    EXPECT_EQ(house.store->count(), 1);
    EXPECT_EQ(alerts.setAsideText(), QString());
}

TEST(LibraryAlerts, askAboutAGameWhoseFileIsGone)
{
    ListHouse house;
    LibraryAlerts alerts(*house.store, house.translator);
    const QString id = house.add(u"Gone"_s, u"gba"_s);
    house.store->launch(id);
    house.tasks.finish();
    EXPECT_TRUE(alerts.missingText().startsWith(u"“Gone” isn't at its usual place anymore"_s));
    EXPECT_FALSE(alerts.missingText().contains(u"Mac"_s));
    alerts.removeMissing();
    EXPECT_EQ(house.store->count(), 0);
    EXPECT_EQ(alerts.missingText(), QString());
}

TEST(LibraryAlerts, addDroppedFoldersAndReportUntilClosed)
{
    ListHouse house;
    LibraryAlerts alerts(*house.store, house.translator);
    house.home.write(u"roms/One.gba"_s);
    EXPECT_TRUE(alerts.addDropped({QUrl::fromLocalFile(house.home.path() + u"/roms"_s)}));
    house.tasks.finish();
    EXPECT_EQ(house.store->count(), 1);
    EXPECT_EQ(alerts.scanText(), QString());
    EXPECT_FALSE(alerts.reportText().isEmpty());
    alerts.dismissReport();
    EXPECT_EQ(alerts.reportText(), QString());
    EXPECT_FALSE(alerts.addDropped({QUrl(u"https://example.org/x"_s)}));
}
