#include "base/SearchForm.h"

#include <gtest/gtest.h>

struct SearchRow {
    const char *name;
    const char *text;
    const char *expected;
};
class SearchForm : public testing::TestWithParam<SearchRow> { };

TEST_P(SearchForm, foldsTheText)
{
    EXPECT_EQ(searchForm(QString::fromUtf8(GetParam().text)).toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Edges, SearchForm,
                         testing::Values(SearchRow{"empty", "", ""}, SearchRow{"onlySigns", "--(!)", ""},
                                         SearchRow{"caseAndSigns", "  Sonic: The  Hedgehog!", "sonic the hedgehog"},
                                         SearchRow{"marks", "Pokémon Édition", "pokemon edition"},
                                         SearchRow{"decomposedMarks", "Poke\u0301mon", "pokemon"},
                                         SearchRow{"sharpS", "STRASSE Straße", "strasse straße"},
                                         SearchRow{"compatibility", "ﬁve Ⅳ", "five iv"},
                                         SearchRow{"otherScript", "ゼルダの伝説", "セルタの伝説"},
                                         SearchRow{"beyondTheBasicPlane", "𝐀b 😀 c", "ab c"}),
                         [](const auto &row) { return row.param.name; });
