#include "app/Doctor.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static const DoctorFacts healthy{
    .dataFolder = u"/d"_s, .dataFolderWritable = true, .games = 3, .displayPresent = true, .fileIndexPresent = true};

static QStringList problems(const DoctorFacts &facts)
{
    QStringList all;
    for (const Finding &finding : examine(facts)) {
        if (finding.grade == Finding::Grade::fine) continue;
        EXPECT_FALSE(finding.remedy.isEmpty()) << english(finding.message).toStdString();
        all += english(finding.message) + u" → "_s + finding.remedy;
    }
    return all;
}

TEST(Doctor, hasNothingToSayAboutAHealthyMachine)
{
    DoctorFacts facts = healthy;
    facts.installed = {{u"mgba"_s, u"/usr/games/mgba-qt"_s}};
    facts.gamesByConsole = {{u"gba"_s, 3}};
    facts.playable = {{u"gba"_s, u"mgba"_s}};
    EXPECT_EQ(problems(facts), QStringList());
}

TEST(Doctor, namesWhatEachConsoleNeeds)
{
    DoctorFacts facts = healthy;
    facts.gamesByConsole = {{u"gba"_s, 2}, {u"snes"_s, 1}};
    facts.installed = {{u"retroarch"_s, u"/usr/bin/retroarch"_s}};
    const QStringList found = problems(facts);
    ASSERT_EQ(found.size(), 2);
    EXPECT_TRUE(found[0].contains(u"Super Nintendo"_s) && found[0].contains(u"core"_s)) << found[0].toStdString();
    EXPECT_TRUE(found[1].contains(u"mGBA isn't installed"_s) && found[1].contains(u"apt install mgba-qt"_s))
        << found[1].toStdString();
}

TEST(Doctor, reportsEveryKindOfTrouble)
{
    DoctorFacts facts;
    facts.dataFolder = u"/d"_s;
    facts.missingFolders = {u"/media/usb"_s};
    EXPECT_EQ(problems(facts).size(), 4);
    facts.unreadableLibrary = u"/d/library.json.unreadable-2026-03-14 20.00.00"_s;
    EXPECT_TRUE(problems(facts).first().contains(facts.unreadableLibrary));
}
