#include "demogame/Lanterns.h"
#include "demogame/Scene.h"

#include <QFile>
#include <gtest/gtest.h>
#include <numeric>

using namespace Qt::StringLiterals;

TEST(Lanterns, fitTogether)
{
    const LanternsGame game = buildLanterns();
    EXPECT_EQ(game.problems, std::vector<std::string>());
    EXPECT_TRUE(drawScene().fits());
}

TEST(Lanterns, areTheSameAtEveryBuild)
{
    QFile file(QString::fromUtf8(VELKO_BUILD_DIR) + u"/demo-game/Games/Game Boy/Lanterns (Demo).gb"_s);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const Bytes rom = buildLanterns().rom;
    EXPECT_EQ(file.readAll(), QByteArray(reinterpret_cast<const char *>(rom.data()), qsizetype(rom.size())));
    EXPECT_EQ(buildLanterns().rom, rom);
}

TEST(Lanterns, haveAHeaderThatAddsUp)
{
    const Bytes rom = buildLanterns().rom;
    ASSERT_EQ(rom.size(), 32u * 1024);
    EXPECT_EQ(std::string(rom.begin() + 0x134, rom.begin() + 0x13C), "LANTERNS");
    // A machine adds the title up to the version, and 25, and its checksum, and wants zero.
    EXPECT_EQ(std::accumulate(rom.begin() + 0x134, rom.begin() + 0x14E, 25) & 0xFF, 0);
    const int all = std::accumulate(rom.begin(), rom.end(), 0) - rom[0x14E] - rom[0x14F];
    EXPECT_EQ(rom[0x14E] << 8 | rom[0x14F], all & 0xFFFF);
}
