#include "ui/EmulatorFacts.h"

#include "emulators/EmulatorOpener.h"
#include "ui/ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct PanelHouse : ListHouse {
    EmulatorOpener opener{places, workspace};
    EmulatorFacts facts{emulators, preferences, opener, translator, places};

    QString install(const QString &file)
    {
        const QString path = home.write(file, "#!/bin/sh\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
        emulators.refresh();
        tasks.finish();
        return path;
    }
    QStringList chosen() const
    {
        QStringList paths;
        for (const QVariant &copy : facts.copies()) {
            if (copy.toMap()[u"chosen"_s].toBool()) paths += copy.toMap()[u"place"_s].toString();
        }
        return paths;
    }
};
}

TEST(EmulatorFacts, rememberThatTheControllerWorks)
{
    PanelHouse house;
    house.facts.setEmulatorID(u"dolphin"_s);
    EXPECT_EQ(house.facts.title(), u"Set the controller up in Dolphin"_s);
    EXPECT_EQ(house.facts.steps().size(), 5);
    EXPECT_EQ(house.facts.stateText(), u"Not set up yet"_s);
    EXPECT_FALSE(house.facts.installed());
    house.facts.setConfigured(true);
    EXPECT_EQ(house.facts.stateText(), u"It works"_s);
    EXPECT_TRUE(house.preferences.get(preference::controllerConfigured(u"dolphin"_s)));
    house.facts.setEmulatorID(u"azahar"_s);
    EXPECT_FALSE(house.facts.configured()) << "each emulator for itself";
    house.facts.setEmulatorID(u"pcsx2"_s);
    EXPECT_FALSE(house.facts.byHand());
    EXPECT_EQ(house.facts.stateText(), u"Nothing to do"_s);
    house.facts.setEmulatorID(u"native"_s);
    EXPECT_EQ(house.facts.title(), u"Native game, no emulator"_s);
    EXPECT_EQ(house.facts.name(), QString());
    house.facts.setConfigured(true);
    house.facts.openAlone();
    EXPECT_TRUE(house.workspace.started.isEmpty());
}

TEST(EmulatorFacts, openTheEmulatorWithoutAGame)
{
    PanelHouse house;
    const QString program = house.install(u"bin/mgba-qt"_s);
    house.facts.setEmulatorID(u"mgba"_s);
    house.facts.openAlone();
    ASSERT_EQ(house.workspace.started.size(), 1);
    const StartRequest request = house.workspace.started.begin().value();
    EXPECT_EQ(request.command, QStringList{program});
    EXPECT_EQ(request.workingFolder, house.places.home);
    EXPECT_TRUE(house.facts.open());
    house.workspace.end(house.workspace.lastPid);
    EXPECT_FALSE(house.facts.open());
    house.workspace.refusal = Message{u"Permission denied"_s, {}};
    house.facts.openAlone();
    EXPECT_EQ(house.facts.problem(), u"Permission denied"_s);
}

TEST(EmulatorFacts, useTheCopyThatTheUserChose)
{
    PanelHouse house;
    house.install(u"bin/pcsx2-qt"_s);
    const QString image = house.install(u"Applications/pcsx2-v2.4.0-linux-appimage-x64-Qt.AppImage"_s);
    house.facts.setEmulatorID(u"pcsx2"_s);
    ASSERT_EQ(house.facts.copies().size(), 2);
    const QVariant first = house.facts.copies().first().toMap()[u"path"_s];
    for (const QString &path : {image, house.home.path() + u"/bin/pcsx2-qt"_s}) {
        house.facts.choose(path);
        house.tasks.finish();
        EXPECT_EQ(house.chosen(), QStringList{u'~' + path.mid(house.home.path().size())});
        EXPECT_EQ(house.emulators.forConsole(u"ps2"_s)->path, path);
        EXPECT_EQ(house.facts.copies().first().toMap()[u"path"_s], first) << "the list stands still";
    }
}
