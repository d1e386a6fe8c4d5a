#include "ui/facts/EmulatorFacts.h"

#include "emulators/launch/EmulatorOpener.h"
#include "emulators/settings/EmulatorChanges.h"
#include "ui/ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct PanelHouse : ListHouse {
    EmulatorOpener opener{places, workspace};
    EmulatorChanges changes{places, clock, tasks, processes};
    EmulatorFacts facts{emulators, preferences, opener, changes, translator, places};

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

TEST(EmulatorFacts, listWhatWasChangedAndPutItBack)
{
    PanelHouse house;
    const QString file = house.home.write(u".config/PCSX2/inis/PCSX2.ini"_s, "[EmuCore/GS]\nupscale_multiplier = 4\n");
    ChangeNotes notes;
    EmulatorChange change;
    change.emulatorID = u"pcsx2"_s;
    change.file = file;
    change.section = {u"EmuCore/GS"_s};
    change.key = u"upscale_multiplier"_s;
    change.old = {u"1"_s};
    change.written = u"4"_s;
    notes.add({.changed = {change}, .gone = {}, .quieted = {}});
    house.changes.record(notes);
    house.facts.setEmulatorID(u"mgba"_s);
    EXPECT_TRUE(house.facts.edits().isEmpty());
    house.facts.setEmulatorID(u"pcsx2"_s);
    ASSERT_EQ(house.facts.edits().size(), 1);
    const QVariantMap row = house.facts.edits().first().toMap();
    EXPECT_EQ(row[u"old"_s].toString() + u" "_s + row[u"value"_s].toString(), u"1 4"_s);
    EXPECT_EQ(row[u"place"_s], u"PCSX2.ini › EmuCore/GS"_s);
    house.facts.putBack();
    house.tasks.finish();
    EXPECT_TRUE(house.facts.edits().isEmpty());
    EXPECT_EQ(house.facts.putBackText(), u"PCSX2 has your own settings again (1 put back)."_s);
    EXPECT_EQ(house.home.read(u".config/PCSX2/inis/PCSX2.ini"_s), "[EmuCore/GS]\nupscale_multiplier = 1\n");
}
