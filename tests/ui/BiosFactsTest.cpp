#include "ui/facts/BiosFacts.h"

#include "emulators/bios/BiosFiles.h"
#include "emulators/settings/EmulatorChanges.h"
#include "ui/ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct BiosHouse : ListHouse {
    EmulatorChanges changes{places, clock, tasks, processes};
    BiosFiles files{places, emulators, preferences, workspace, tasks, changes};
    BiosFacts facts{files, emulators, translator, places};

    BiosHouse() { tasks.immediate = true; }
    QString report(int index, const QString &what) const
    {
        return facts.reports().value(index).toMap()[what].toString();
    }
};
}

TEST(BiosFacts, sayWhatIsNeededAndWhere)
{
    BiosHouse house;
    house.facts.setConsoleID(u"gba"_s);
    EXPECT_EQ(house.facts.label() + house.facts.need() + house.facts.place() + house.facts.stateText(), QString());
    house.facts.setConsoleID(u"ps2"_s);
    EXPECT_EQ(house.facts.label(), u"PS2 BIOS"_s);
    EXPECT_EQ(house.facts.hint(), u"SCPH-xxxxx.bin"_s);
    EXPECT_EQ(house.facts.need(), u"Required"_s);
    EXPECT_EQ(house.facts.place(), u"They belong in ~/.config/PCSX2/bios"_s);
    EXPECT_EQ(house.facts.stateText(), u"Missing"_s);
    EXPECT_EQ(house.facts.stateDot(), u"warn"_s);
    house.facts.setConsoleID(u"dc"_s);
    EXPECT_EQ(house.facts.need(), u"Recommended"_s);
    EXPECT_EQ(house.facts.stateDot(), u"off"_s);
    house.facts.setConsoleID(u"xbox"_s);
    EXPECT_EQ(house.facts.stateText(), u"Missing: MCPX Boot ROM, Flash ROM (BIOS), Hard disk image"_s);
    house.facts.setConsoleID(u"ps3"_s);
    EXPECT_EQ(house.facts.place(), u"RPCS3 installs it itself"_s);
}

TEST(BiosFacts, takeSeveralFilesAndReportEach)
{
    BiosHouse house;
    house.facts.setConsoleID(u"lynx"_s);
    const QString odd = house.home.write(u"Downloads/lynxboot.img"_s, QByteArray(512, 'x'));
    EXPECT_TRUE(house.facts.drop({QUrl::fromLocalFile(odd), QUrl::fromLocalFile(house.home.path() + u"/gone"_s)}));
    ASSERT_EQ(house.facts.reports().size(), 2);
    EXPECT_EQ(house.report(0, u"text"_s), u"lynxboot.img copied to ~/.config/retroarch/system"_s);
    EXPECT_EQ(house.report(0, u"good"_s), u"true"_s);
    EXPECT_TRUE(house.report(0, u"detail"_s).contains(u"isn't a known file"_s));
    EXPECT_EQ(house.report(1, u"good"_s), u"false"_s);
    EXPECT_EQ(house.facts.stateText(), u"There is a file, but not a known one"_s);
    EXPECT_FALSE(house.facts.drop({QUrl(u"https://example.org/bios.bin"_s)}));
    house.facts.setConsoleID(u"ps2"_s);
    EXPECT_TRUE(house.facts.reports().isEmpty()) << "of another console";
}
