#include "demogame/Assembler.h"

#include <gtest/gtest.h>

using namespace sm83;

TEST(Assembler, fillsLabelsForwardsAndBackwards)
{
    Assembler p(0x150);
    p.label("start");
    p.jr(ifNotZero, "end");
    p.jp("start");
    p.label("end");
    p.jr("start");
    p.ld(hl, "end");
    EXPECT_EQ(p.finish(), (Bytes{0x20, 0x03, 0xC3, 0x50, 0x01, 0x18, 0xF9, 0x21, 0x55, 0x01}));
    EXPECT_TRUE(p.problems().empty());
}

TEST(Assembler, takesTheShortFormForTheHardware)
{
    Assembler p(0);
    p.ld(a, At{0xFF44});
    p.ld(At{0xFF44}, a);
    p.ld(a, At{0xC0DE});
    p.ld(At{0xC0DE}, a);
    p.ld(atHL, 5);
    p.ld(b, a);
    EXPECT_EQ(p.finish(), (Bytes{0xF0, 0x44, 0xE0, 0x44, 0xFA, 0xDE, 0xC0, 0xEA, 0xDE, 0xC0, 0x36, 0x05, 0x47}));
}

struct ProblemRow {
    const char *name;
    void (*write)(Assembler &);
    const char *problem;
};
class AssemblerProblem : public testing::TestWithParam<ProblemRow> { };

TEST_P(AssemblerProblem, isReported)
{
    Assembler p(0);
    p.label("far");
    GetParam().write(p);
    p.finish();
    EXPECT_EQ(p.problems(), std::vector<std::string>{GetParam().problem});
}

INSTANTIATE_TEST_SUITE_P(
    Edges, AssemblerProblem,
    testing::Values(ProblemRow{"missing", [](Assembler &p) { p.jp("nowhere"); }, "nowhere is used but nowhere placed"},
                    ProblemRow{"twice", [](Assembler &p) { p.label("far"); }, "far is placed twice"},
                    ProblemRow{"tooFar",
                               [](Assembler &p) {
                                   p.bytes(Bytes(127, 0));
                                   p.jr("far");
                               },
                               "far is too far away for jr"},
                    ProblemRow{"wrongRegister", [](Assembler &p) { p.ld(b, At{0xC000}); },
                               "only A is read from and written to memory by address"}),
    [](const auto &row) { return row.param.name; });

TEST(Assembler, reachesTheFarthestByte)
{
    Assembler p(0);
    p.label("far");
    p.bytes(Bytes(126, 0));
    p.jr("far");
    EXPECT_EQ(p.finish().back(), 0x80);
    EXPECT_TRUE(p.problems().empty());
}
