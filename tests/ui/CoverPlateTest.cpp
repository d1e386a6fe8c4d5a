#include "ui/images/CoverPlate.h"

#include "catalog/Console.h"
#include "ui/images/ConsoleHue.h"
#include "ui/images/CoverImageProvider.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ConsoleHue, isTheOneOfTheTheme)
{
    QFile theme(QStringLiteral(VELKO_SOURCE_DIR "/src/ui/qml/Theme.qml"));
    ASSERT_TRUE(theme.open(QFile::ReadOnly));
    const QString text = QString::fromUtf8(theme.readAll());
    const qsizetype start = text.indexOf(u"hues: ({"_s);
    const QString table = text.mid(start, text.indexOf(u"})"_s, start) - start);
    static const QRegularExpression entry(uR"re("?(\w+)"?: (\d+))re"_s);
    QHash<QString, int> hues;
    auto matches = entry.globalMatch(table);
    while (matches.hasNext()) {
        const auto match = matches.next();
        hues.insert(match.captured(1), match.captured(2).toInt());
    }
    EXPECT_EQ(hues, consoleHues());
    for (const Console &console : consoles(Host::linux))
        EXPECT_TRUE(hues.contains(console.id)) << qPrintable(console.id);
}

struct AddressRow {
    const char *name;
    QString address;
    std::optional<CoverRequest> request;
};
class CoverAddress : public testing::TestWithParam<AddressRow> { };
TEST_P(CoverAddress, isReadOrRefused)
{
    EXPECT_EQ(coverRequest(GetParam().address), GetParam().request);
}
INSTANTIATE_TEST_SUITE_P(
    Edges, CoverAddress,
    testing::Values(
        AddressRow{"game", u"AB-1/192x256"_s, CoverRequest{.gameID = u"AB-1"_s, .size = {192, 256}, .radius = 8}},
        AddressRow{"gameWithContent", u"AB-1.zz9/192x256?3"_s,
                   CoverRequest{.gameID = u"AB-1"_s, .size = {192, 256}, .radius = 8}},
        AddressRow{"radius", u"AB-1/100x100x155"_s,
                   CoverRequest{.gameID = u"AB-1"_s, .size = {100, 100}, .radius = 15.5}},
        AddressRow{"console", u"console:32x/272x208x200"_s,
                   CoverRequest{.consoleID = u"32x"_s, .size = {272, 208}, .radius = 20}},
        AddressRow{"fadedConsole", u"console:cdi:off/272x208x200"_s,
                   CoverRequest{.consoleID = u"cdi"_s, .faded = true, .size = {272, 208}, .radius = 20}},
        AddressRow{"empty", u""_s, {}}, AddressRow{"noSize", u"AB-1"_s, {}}, AddressRow{"zero", u"AB-1/0x10"_s, {}},
        AddressRow{"negative", u"AB-1/-5x10"_s, {}}, AddressRow{"largerThanAScreen", u"AB-1/9999x9999"_s, {}},
        AddressRow{"overflow", u"AB-1/99999999999x10"_s, {}}, AddressRow{"unknownForm", u"console:cdi:on/10x10"_s, {}},
        AddressRow{"folders", u"../../etc/10x10"_s, {}}),
    [](const auto &row) { return row.param.name; });

static const CoverPlate plain{
    .title = u"Tin Parade"_s, .label = u"PS2"_s, .consoleID = u"ps2"_s, .size = {192, 256}, .radius = 8};

TEST(CoverPlate, isTheSamePictureEveryTime)
{
    const QImage picture = painted(plain);
    EXPECT_EQ(picture.size(), plain.size);
    EXPECT_EQ(picture, painted(plain));
    CoverPlate other = plain;
    other.title = u"Wicker City"_s;
    EXPECT_NE(picture, painted(other));
}

TEST(CoverPlate, hasRoundCornersAndTheConsolesColours)
{
    const QImage picture = painted({.consoleID = u"ps2"_s, .size = {200, 300}, .radius = 20});
    for (const QPoint corner : {QPoint(0, 0), QPoint(199, 0), QPoint(0, 299), QPoint(199, 299)})
        EXPECT_EQ(qAlpha(picture.pixel(corner)), 0);
    const QColor top = picture.pixelColor(100, 3);
    const QColor bottom = picture.pixelColor(10, 285);
    EXPECT_NEAR(top.hslHue(), 226, 4);
    EXPECT_NEAR(top.lightnessF(), 0.29, 0.02);
    EXPECT_NEAR(bottom.lightnessF(), 0.165, 0.02);
    EXPECT_GT(picture.pixelColor(180, 290).lightnessF(), bottom.lightnessF() + 0.02) << "the discs";
}

TEST(CoverPlate, staysCalmWhateverTheTitle)
{
    for (const QString &title :
         {QString(5000, u'W'), u"a\nb\tc"_s, u"مرحبا بالعالم"_s, QString(3, QChar(0xD800)), u"   "_s}) {
        CoverPlate plate = plain;
        plate.title = title;
        EXPECT_EQ(painted(plate).size(), plain.size);
    }
    CoverPlate tiny = plain;
    tiny.size = {1, 1};
    EXPECT_EQ(painted(tiny).size(), QSize(1, 1));
    tiny.size = {};
    EXPECT_TRUE(painted(tiny).isNull());
}

TEST(CoverPlate, keepsTheTitleAboveTheLabel)
{
    CoverPlate longTitle = plain;
    longTitle.title = u"The Extraordinarily Long Adventures of a Tin Soldier in Four Acts and an Epilogue"_s;
    CoverPlate noTitle = plain;
    noTitle.title.clear();
    const QRect label(0, 170, 192, 86);
    EXPECT_EQ(painted(longTitle).copy(label), painted(noTitle).copy(label));
}
