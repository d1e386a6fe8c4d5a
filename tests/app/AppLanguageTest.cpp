#include "app/AppLanguage.h"
#include "app/Translator.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct LanguageRow {
    const char *name;
    QString stored;
    QStringList preferred;
    AppLanguage expected;
};
class ChosenLanguage : public testing::TestWithParam<LanguageRow> { };

TEST_P(ChosenLanguage, followsChoiceThenSystem)
{
    EXPECT_EQ(chooseLanguage(GetParam().stored, GetParam().preferred), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, ChosenLanguage,
    testing::Values(LanguageRow{"storedWins", u"pt-BR"_s, {u"en-US"_s}, AppLanguage::portuguese},
                    LanguageRow{"unknownStored", u"xx"_s, {u"de-AT"_s}, AppLanguage::german},
                    LanguageRow{"canadianFrench", {}, {u"fr-CA"_s}, AppLanguage::french},
                    LanguageRow{"europeanPortuguese", {}, {u"PT-pt"_s}, AppLanguage::portuguese},
                    LanguageRow{"firstKnownOfSeveral", {}, {u"ja"_s, u"es"_s, u"fr"_s}, AppLanguage::spanish},
                    LanguageRow{"onlyJapanese", {}, {u"ja-JP"_s}, AppLanguage::english}),
    [](const auto &row) { return row.param.name; });

TEST(Translator, wordsMacSentencesForTheHost)
{
    const Translator mac(AppLanguage::english, Host::mac);
    const Translator linux_(AppLanguage::english, Host::linux);
    EXPECT_EQ(mac.translate(u"Mac apps"_s), u"Mac apps"_s);
    EXPECT_EQ(linux_.translate(u"Mac apps"_s), u"Native games"_s);
    const Message gone{
        u"“%@” isn't at its usual place anymore, and Velko couldn't find it on your Mac. It was maybe moved to an external drive, renamed or deleted."_s,
        {u"100%@ Fun"_s}};
    EXPECT_TRUE(linux_.message(gone).startsWith(u"“100%@ Fun” isn't"_s));
    EXPECT_FALSE(linux_.message(gone).contains(u"Mac"_s));
}

TEST(Translator, looksTheWordingOfTheHostUpInTheLanguage)
{
    const Translator german(AppLanguage::german, Host::linux,
                            {{u"Native games"_s, u"Eigene Programme"_s},
                             {u"Mac apps"_s, u"Mac-Apps"_s},
                             {u"%ld games"_s, u"%ld Spiele"_s}});
    EXPECT_EQ(german.translate(u"Mac apps"_s), u"Eigene Programme"_s);
    EXPECT_EQ(german.message({u"%ld games"_s, {u"%ld games"_s}}), u"%ld games Spiele"_s) << "translated, then filled";
    EXPECT_EQ(german.translate(u"Ready"_s), u"Ready"_s) << "not in the table";
}
