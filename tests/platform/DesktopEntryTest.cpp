#include "platform/linux/DesktopEntry.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct ExecRow {
    const char *name;
    QString value;
    QStringList command;
};
class SplitExec : public testing::TestWithParam<ExecRow> { };
TEST_P(SplitExec, followsTheQuotingRules)
{
    EXPECT_EQ(splitExec(GetParam().value), GetParam().command);
}
INSTANTIATE_TEST_SUITE_P(
    Edges, SplitExec,
    testing::Values(ExecRow{"empty", u""_s, {}}, ExecRow{"blanks", u" \t "_s, {}},
                    ExecRow{"words", u" mgba-qt   -f\t-3 "_s, {u"mgba-qt"_s, u"-f"_s, u"-3"_s}},
                    ExecRow{"quotedBlank", uR"re("/opt/My Emu/emu" -x)re"_s, {u"/opt/My Emu/emu"_s, u"-x"_s}},
                    ExecRow{"quoteInsideAWord",
                            uR"re(env WINEPREFIX="/a b" wine)re"_s,
                            {u"env"_s, u"WINEPREFIX=/a b"_s, u"wine"_s}},
                    ExecRow{"emptyQuotedArgument", uR"re(a "" b)re"_s, {u"a"_s, u""_s, u"b"_s}},
                    ExecRow{"escapesInsideQuotes", uR"re(a "\"\`\$\\\n")re"_s, {u"a"_s, u"\"`$\\\\n"_s}},
                    ExecRow{"backslashOutsideQuotes", uR"re(/a\ b)re"_s, {u"/a b"_s}},
                    ExecRow{"backslashAtTheEnd", u"a b\\"_s, {u"a"_s, u"b\\"_s}},
                    ExecRow{"unterminatedQuote", u"a \"b c"_s, {}},
                    ExecRow{"unterminatedAfterEscape", u"a \"b\\\""_s, {}},
                    ExecRow{"fieldCodesGo", u"emu %f %F %u %U %i %c %k %d %v end"_s, {u"emu"_s, u"end"_s}},
                    ExecRow{"fieldCodeInAWord", u"emu --title=%c"_s, {u"emu"_s, u"--title="_s}},
                    ExecRow{"percent", u"emu 100%% %"_s, {u"emu"_s, u"100%"_s}},
                    ExecRow{"noShell",
                            u"emu $HOME `id` ;rm > x | y &"_s,
                            {u"emu"_s, u"$HOME"_s, u"`id`"_s, u";rm"_s, u">"_s, u"x"_s, u"|"_s, u"y"_s, u"&"_s}}),
    [](const auto &row) { return row.param.name; });

static const QByteArray simple = "[Desktop Entry]\nType=Application\nName=Emu\nExec=emu\n";

struct EntryRow {
    const char *name;
    QByteArray text;
    std::optional<DesktopEntry> entry;
};
class ParseDesktopEntry : public testing::TestWithParam<EntryRow> { };
TEST_P(ParseDesktopEntry, readsOnlyItsOwnGroup)
{
    EXPECT_EQ(parseDesktopEntry(GetParam().text), GetParam().entry);
}
static const DesktopEntry emu{.name = u"Emu"_s, .command = {u"emu"_s}, .isApplication = true};
static DesktopEntry changed(const std::function<void(DesktopEntry &)> &change)
{
    DesktopEntry entry = emu;
    change(entry);
    return entry;
}
INSTANTIATE_TEST_SUITE_P(
    Edges, ParseDesktopEntry,
    testing::Values(
        EntryRow{"plain", simple, emu}, EntryRow{"windowsLineEnds", QByteArray(simple).replace("\n", "\r\n"), emu},
        EntryRow{"byteOrderMark", "\xef\xbb\xbf" + simple, emu}, EntryRow{"noLastLineEnd", simple.chopped(1), emu},
        EntryRow{"commentsAndBlanks", "# x\n\n" + QByteArray(simple).replace("=", " \t= ") + "#Name=No\n= \nno\n", emu},
        EntryRow{"otherLanguages", simple + "Name[de]=Nein\nName[sr@latin]=Ne\n", emu},
        EntryRow{"otherGroups", "[X]\nName=No\n" + simple + "[Desktop Action new]\nName=No\nExec=no\n", emu},
        EntryRow{"aSecondGroupOfTheName", simple + "[X]\n[Desktop Entry]\nExec=evil\n", emu},
        EntryRow{"lastOfTwoKeys", simple + "Exec=other\n",
                 changed([](DesktopEntry &entry) { entry.command = {u"other"_s}; })},
        EntryRow{"escapes", simple + "Name=\\sA\\tB\\nC\\\\D\\rE\\x\\\n",
                 changed([](DesktopEntry &entry) { entry.name = u" A\tB\nC\\D\rE\\x\\"_s; })},
        EntryRow{"bothKindsOfEscapes", simple + "Exec=\"a \\\\\"b\" c\\\\\\\\d\n", changed([](DesktopEntry &entry) {
                     entry.command = {u"a \"b"_s, u"c\\d"_s};
                 })},
        EntryRow{"link", simple + "Type=Link\n", changed([](DesktopEntry &entry) { entry.isApplication = false; })},
        EntryRow{"hidden", simple + "Hidden=true\n", changed([](DesktopEntry &entry) { entry.hidden = true; })},
        EntryRow{"notShownStillCounts", simple + "NoDisplay=true\nHidden=false\n", emu},
        EntryRow{"emptyExec", simple + "Exec=\n", changed([](DesktopEntry &entry) { entry.command.clear(); })},
        EntryRow{"tryExec", simple + "TryExec=/a\\sb\n",
                 changed([](DesktopEntry &entry) { entry.tryExec = u"/a b"_s; })},
        EntryRow{"nothing", "", {}}, EntryRow{"noGroup", "Type=Application\nExec=emu\n", {}},
        EntryRow{"otherGroupOnly", "[Desktop Action x]\nExec=emu\n", {}},
        EntryRow{"nulBytes", simple + QByteArray("Exec=a\0b\n", 9), {}},
        EntryRow{"oneEndlessLine", "[Desktop Entry]" + QByteArray(1'000'000, 'x'), {}}),
    [](const auto &row) { return row.param.name; });

TEST(DesktopEntry, takesBytesThatAreNoText)
{
    const auto entry = parseDesktopEntry(simple + "Name=\xff\xfe\xc3\n" + QByteArray(300'000, '\x80'));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->command, QStringList{u"emu"_s});
}

struct FlatpakRow {
    const char *name;
    QString exec;
    QStringList command;
};
class FlatpakCommand : public testing::TestWithParam<FlatpakRow> { };
TEST_P(FlatpakCommand, keepsWhatStartsTheProgram)
{
    EXPECT_EQ(flatpakCommand({.command = splitExec(GetParam().exec), .flatpakID = u"org.x.Emu"_s}), GetParam().command);
}
INSTANTIATE_TEST_SUITE_P(
    Edges, FlatpakCommand,
    testing::Values(
        FlatpakRow{
            "exported",
            u"/usr/bin/flatpak run --branch=stable --arch=x86_64 --command=emu --file-forwarding org.x.Emu @@u %u @@"_s,
            {u"/usr/bin/flatpak"_s, u"run"_s, u"--branch=stable"_s, u"--arch=x86_64"_s, u"--command=emu"_s,
             u"org.x.Emu"_s}},
        FlatpakRow{"withoutFiles", u"flatpak run org.x.Emu -x"_s, {u"flatpak"_s, u"run"_s, u"org.x.Emu"_s}},
        FlatpakRow{"somethingElse", u"emu %f"_s, {u"flatpak"_s, u"run"_s, u"org.x.Emu"_s}},
        FlatpakRow{"empty", u""_s, {u"flatpak"_s, u"run"_s, u"org.x.Emu"_s}}),
    [](const auto &row) { return row.param.name; });

TEST(ProgramIndex, looksBehindEnv)
{
    EXPECT_EQ(programIndex({}), -1);
    EXPECT_EQ(programIndex({u"emu"_s}), 0);
    EXPECT_EQ(programIndex({u"/usr/bin/env"_s, u"A=b c"_s, u"B="_s, u"emu"_s, u"C=d"_s}), 3);
    EXPECT_EQ(programIndex({u"env"_s}), 0);
}
