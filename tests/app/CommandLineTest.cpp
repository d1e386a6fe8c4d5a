#include "app/CommandLine.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct CommandRow {
    const char *name;
    QStringList arguments;
    Command expected;
};
class CommandLine : public testing::TestWithParam<CommandRow> { };

TEST_P(CommandLine, isUnderstood)
{
    const auto command = parseCommandLine(GetParam().arguments);
    ASSERT_TRUE(command) << english(command.failure()).toStdString();
    EXPECT_EQ(command.value(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, CommandLine,
    testing::Values(
        CommandRow{"nothing", {}, {}}, CommandRow{"bigPicture", {u"--big-picture"_s}, {Command::Kind::openBigPicture}},
        CommandRow{"scanAll", {u"scan"_s}, {Command::Kind::scan}},
        CommandRow{"virtualPad", {u"--virtual-pad"_s, u"/p"_s}, {.virtualPad = u"/p"_s}},
        CommandRow{"virtualPadInPlay",
                   {u"play"_s, u"--virtual-pad"_s, u"p"_s, u"x"_s},
                   {.kind = Command::Kind::play, .operands = {u"x"_s}, .virtualPad = u"p"_s}},
        CommandRow{
            "virtualPadAsAName", {u"play"_s, u"--"_s, u"--virtual-pad"_s}, {Command::Kind::play, {u"--virtual-pad"_s}}},
        CommandRow{"scanFolders", {u"scan"_s, u"/a b"_s, u"c"_s}, {Command::Kind::scan, {u"/a b"_s, u"c"_s}}},
        CommandRow{"jsonList", {u"list"_s, u"--json"_s}, {Command::Kind::list, {}, true}},
        CommandRow{"play", {u"play"_s, u"It's $(me)"_s}, {Command::Kind::play, {u"It's $(me)"_s}}},
        CommandRow{"bios", {u"bios"_s, u"a.bin"_s, u"b"_s}, {Command::Kind::bios, {u"a.bin"_s, u"b"_s}}},
        CommandRow{"leadingDash",
                   {u"add"_s, u"--"_s, u"-x.gb"_s, u"--json"_s},
                   {Command::Kind::add, {u"-x.gb"_s, u"--json"_s}}}),
    [](const auto &row) { return row.param.name; });

TEST(CommandLine, refusesWhatItDoesNotKnow)
{
    const QList<QStringList> wrong{{u"fly"_s},
                                   {u"play"_s},
                                   {u"play"_s, u"a"_s, u"b"_s},
                                   {u"add"_s},
                                   {u"list"_s, u"x"_s},
                                   {u"scan"_s, u"--json"_s},
                                   {u"scan"_s, QString()},
                                   {u"add"_s, u"-x.gb"_s},
                                   {u"bios"_s},
                                   {u"--virtual-pad"_s},
                                   {u"list"_s, u"--virtual-pad"_s, u"p"_s},
                                   {QString()}};
    for (const QStringList &arguments : wrong)
        EXPECT_FALSE(parseCommandLine(arguments)) << arguments.join(u' ').toStdString();
}
