#include "base/Message.h"

#include <gtest/gtest.h>

struct FillRow {
    const char *name;
    const char *sentence;
    QStringList arguments;
    const char *expected;
};
class Filled : public testing::TestWithParam<FillRow> { };

TEST_P(Filled, givesTheSentence)
{
    EXPECT_EQ(filled(QString::fromUtf8(GetParam().sentence), GetParam().arguments).toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Edges, Filled,
                         testing::Values(FillRow{"plain", "Nothing here", {}, "Nothing here"},
                                         FillRow{"text", "File not found: %@", {"/a b"}, "File not found: /a b"},
                                         FillRow{"number", "%ld consoles", {"38"}, "38 consoles"},
                                         FillRow{"inOrder", "%@ and %@", {"one", "two"}, "one and two"},
                                         FillRow{"percent", "100%% of %@", {"it"}, "100% of it"},
                                         FillRow{"argumentLooksLikePlaceholder", "%@ %@", {"%@", "b"}, "%@ b"},
                                         FillRow{"tooFewArguments", "%@ of %ld", {"1"}, "1 of %ld"},
                                         FillRow{"loneAtEnd", "50 %", {}, "50 %"}),
                         [](const auto &row) { return row.param.name; });

TEST(Message, textsInsideAreTranslatedThemselves)
{
    const Message inner{QStringLiteral(" %@"), {}, {{0, {QStringLiteral("version %@"), {QStringLiteral("1.0")}}}}};
    const Message message{
        QStringLiteral("%@ patch%@ of %@"), {QStringLiteral("No"), {}, QStringLiteral("it")}, {{1, inner}}};
    EXPECT_EQ(english(message).toStdString(), "No patch version 1.0 of it");
    const auto shouted = [](const QString &text) {
        return text.toUpper().replace(QLatin1String("%LD"), QLatin1String("%ld"));
    };
    EXPECT_EQ(told(message, shouted).toStdString(), "No PATCH VERSION 1.0 OF it");
    EXPECT_EQ(told(listed({QStringLiteral("a"), QStringLiteral("b")}), shouted).toStdString(), "A, B");
}
