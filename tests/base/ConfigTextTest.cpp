#include "base/IniText.h"
#include "base/TomlText.h"
#include "base/XmlText.h"
#include "base/YamlText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// One edit of one text. `values` are separated by "|"; empty: the key goes.
struct EditRow {
    const char *test;
    const char *before;
    const char *place; ///< keys, outermost first, separated by ">"
    const char *values;
    const char *after; ///< "?": refused
};

static QStringList parts(const char *text, QChar separator)
{
    return QString::fromUtf8(text).split(separator, Qt::SkipEmptyParts);
}

static std::string textOf(const std::optional<QByteArray> &text)
{
    return text ? text->toStdString() : "?";
}

template <class Edit>
static void expectEdit(const EditRow &row, Edit edit)
{
    const QStringList values = parts(row.values, u'|');
    const auto after = edit(QByteArray(row.before), values);
    EXPECT_EQ(textOf(after), row.after);
    if (!after) return;
    EXPECT_EQ(textOf(edit(*after, values)), row.after) << "a second time nothing changes";
}

static const auto nameOf = [](const auto &row) { return row.param.test; };

class IniEdit : public testing::TestWithParam<EditRow> { };
TEST_P(IniEdit, changesOneKey)
{
    const QStringList place = QString::fromUtf8(GetParam().place).split(u'>');
    expectEdit(GetParam(), [&](const QByteArray &text, const QStringList &values) {
        return std::optional(editIni(text, place[0], place[1], values));
    });
}
INSTANTIATE_TEST_SUITE_P(
    Texts, IniEdit,
    testing::Values(
        EditRow{"replaced", "[A]\nk=1\n[B]\nk = 1 ; c\nx=2\n", "B>k", "3", "[A]\nk=1\n[B]\nk = 3\nx=2\n"},
        EditRow{"addedAfterTheLastLine", "[A]\nx=1\n\n\n[B]\ny=1", "A>k", "3", "[A]\nx=1\nk = 3\n\n\n[B]\ny=1"},
        EditRow{"addedToAnEmptySection", "[A]\n[B]\ny=1", "A>k", "3", "[A]\nk = 3\n[B]\ny=1"},
        EditRow{"addedAtTheEndWithoutLineEnd", "[A]\nx=1", "A>k", "3", "[A]\nx=1\nk = 3"},
        EditRow{"sectionAdded", "[A]\nx=1\n", "B/C>k", "3", "[A]\nx=1\n[B/C]\nk = 3\n"},
        EditRow{"sectionAddedWithoutLineEnd", "[A]\nx=1", "B>k", "3", "[A]\nx=1\n[B]\nk = 3"},
        EditRow{"nothingThere", "", "B>k", "3", "[B]\nk = 3\n"},
        EditRow{"windowsLineEnds", "[A]\r\nx=1\r\n[B]\r\nk=1\r\n", "A>k", "3", "[A]\r\nx=1\r\nk = 3\r\n[B]\r\nk=1\r\n"},
        EditRow{"mixedLineEndsStay", "[A]\r\nk=1\nx=2\r\n", "A>k", "3", "[A]\r\nk = 3\nx=2\r\n"},
        EditRow{"byteOrderMark", "\xef\xbb\xbf[A]\nk=1\n", "A>k", "3", "\xef\xbb\xbf[A]\nk = 3\n"},
        EditRow{"twiceInTheSection", "[A]\nk=1\nk=2\n", "A>k", "3", "[A]\nk = 3\nk = 3\n"},
        EditRow{"eachItsOwn", "[A]\nk=1\nk=2\n", "A>k", "3|4", "[A]\nk = 3\nk = 4\n"},
        EditRow{"sectionTwice", "[A]\nx=1\n[B]\n[A]\nk=1\n", "A>k", "3", "[A]\nx=1\n[B]\n[A]\nk = 3\n"},
        EditRow{"sectionTwiceWithoutKey", "[A]\nx=1\n[B]\n[A]\ny=1\n", "A>k", "3", "[A]\nx=1\nk = 3\n[B]\n[A]\ny=1\n"},
        EditRow{"commentIsNoKey", "[A]\n; k = 1\n#k=1\n", "A>k", "3", "[A]\n; k = 1\n#k=1\nk = 3\n"},
        EditRow{"valueIsNoKey", "[A]\nx=k=1\nkk=1\n", "A>k", "3", "[A]\nx=k=1\nkk=1\nk = 3\n"},
        EditRow{"blanksAroundNames", "  [A] \n  k  =1\n", "A>k", "3", "  [A] \nk = 3\n"},
        EditRow{"headerWithoutEnd", "[A\nk=1\n", "A>k", "3", "[A\nk=1\n[A]\nk = 3\n"},
        EditRow{"otherCase", "[a]\nk=1\n", "A>k", "3", "[a]\nk=1\n[A]\nk = 3\n"},
        EditRow{"beforeEverySection", "# c\nk=1\n[A]\nk=2\n", ">k", "3", "# c\nk = 3\n[A]\nk=2\n"},
        EditRow{"addedBeforeEverySection", "[A]\nk=2\n", ">k", "3", "k = 3\n[A]\nk=2\n"},
        EditRow{"backslashInTheName", "[R]\nf\\default=true\nf=1\n", "R>f\\default", "x", "[R]\nf\\default = x\nf=1\n"},
        EditRow{"removed", "[A]\r\nk=1\r\nx=1\r\nk=2", "A>k", "", "[A]\r\nx=1\r\n"},
        EditRow{"notThereToRemove", "[A]\nx=1\n", "A>k", "", "[A]\nx=1\n"}),
    nameOf);

TEST(IniText, addsManyKeysInTheirOrder)
{
    EXPECT_EQ(editIni("[A]\nb=1\n\n[B]\n", u"A"_s, {{u"a"_s, u"1"_s}, {u"b"_s, u"2"_s}, {u"c"_s, u"3"_s}}, u"="_s),
              "[A]\nb=2\na=1\nc=3\n\n[B]\n");
    EXPECT_EQ(iniValues("[A]\nk = 1 ; c\n[B]\nk=5\n[A]\nk=\n", u"A"_s, u"k"_s), (QStringList{u"1 ; c"_s, QString()}));
}

class TomlEdit : public testing::TestWithParam<EditRow> { };
TEST_P(TomlEdit, changesOneValue)
{
    const QStringList place = parts(GetParam().place, u'>');
    expectEdit(GetParam(), [&](const QByteArray &text, const QStringList &values) {
        return editToml(text, place.first(place.size() - 1), place.last(), values);
    });
}
INSTANTIATE_TEST_SUITE_P(
    Texts, TomlEdit,
    testing::Values(
        EditRow{"replaced", "[a]\nk = 1 # best\nx=2\n", "a>k", "3", "[a]\nk = 3 # best\nx=2\n"},
        EditRow{"addedToItsTable", "[a.b]\nx = 1\n\n[c]\nk = 1\n", "a>b>k", "3", "[a.b]\nx = 1\nk = 3\n\n[c]\nk = 1\n"},
        EditRow{"tableAdded", "[a]\nx=1\n", "a>b>k", "3", "[a]\nx=1\n[a.b]\nk = 3\n"},
        EditRow{"nothingThere", "", "a>k", "3", "[a]\nk = 3\n"},
        EditRow{"quotedNames", "[ \"a\" . 'b' ]\r\n\"k\"=1\r\n", "a>b>k", "3", "[ \"a\" . 'b' ]\r\n\"k\"=3\r\n"},
        EditRow{"dotted", "[a]\nb.k = 1\n", "a>b>k", "3", "[a]\nb.k = 3\n"},
        EditRow{"addedBesideDotted", "[a]\nb.x = 1\ny = 2\n", "a>b>k", "3", "[a]\nb.x = 1\nb.k = 3\ny = 2\n"},
        EditRow{"inlineTable", "[a]\nb = { x = 1, k = 1 }\n", "a>b>k", "3", "[a]\nb = { x = 1, k = 3 }\n"},
        EditRow{"addedToInlineTable", "a = {x = '}'} # c\n", "a>k", "3", "a = {x = '}', k = 3} # c\n"},
        EditRow{"addedToEmptyInlineTable", "a = {}\n", "a>k", "3", "a = { k = 3 }\n"},
        EditRow{"textsHoldNoKeys", "[a]\nx = '''\nk = 1\n[b]\n'''\ny = \"\"\"\nk = 2\\\"\"\"\"\nk = 3\n", "a>k", "4",
                "[a]\nx = '''\nk = 1\n[b]\n'''\ny = \"\"\"\nk = 2\\\"\"\"\"\nk = 4\n"},
        EditRow{"arraysHoldNoKeys", "[a]\nx = [\n { k = 1 }, # ] k\n \"]\"\n]\nk = 2\n", "a>k", "4",
                "[a]\nx = [\n { k = 1 }, # ] k\n \"]\"\n]\nk = 4\n"},
        EditRow{"commentedOut", "[a]\n# k = 1\n", "a>k", "3", "[a]\n# k = 1\nk = 3\n"},
        EditRow{"top", "x = 1\n\n[a]\n", "k", "3", "x = 1\nk = 3\n\n[a]\n"},
        EditRow{"topBeforeTables", "[a]\nx=1\n", "k", "3", "k = 3\n[a]\nx=1\n"},
        EditRow{"longNameQuoted", "", "a b>k", "3", "['a b']\nk = 3\n"},
        EditRow{"removed", "[a]\nk = [1,\n2]\nx = 1\n", "a>k", "", "[a]\nx = 1\n"},
        EditRow{"valueInPlaceOfTheTable", "a = 1\n", "a>k", "3", "?"},
        EditRow{"arrayOfTables", "[[a]]\nk = 1\n", "a>x", "3", "?"},
        EditRow{"openHeader", "[a\nk = 1\n", "a>k", "3", "?"}, EditRow{"openText", "[a]\nk = 'x\n", "a>k", "3", "?"},
        EditRow{"openLongText", "[a]\nk = '''x\n", "a>k", "3", "?"},
        EditRow{"openArray", "[a]\nk = [1, 2\n", "a>k", "3", "?"}, EditRow{"noToml", "hello\n", "a>k", "3", "?"}),
    nameOf);

TEST(TomlText, textsGoThereAndBack)
{
    for (const QString &text : {u"/a b/é"_s, u"it's"_s, u"tab\t\"q\" \\ '"_s, QString()})
        EXPECT_EQ(textOfToml(tomlOfText(text).toUtf8()), text) << qPrintable(text);
    EXPECT_EQ(tomlOfText(u"C:\\x"_s), u"'C:\\x'"_s);
}

class YamlEdit : public testing::TestWithParam<EditRow> { };
TEST_P(YamlEdit, changesOneValue)
{
    expectEdit(GetParam(), [&](const QByteArray &text, const QStringList &values) {
        return editYaml(text, parts(GetParam().place, u'>'), values);
    });
}
INSTANTIATE_TEST_SUITE_P(
    Texts, YamlEdit,
    testing::Values(
        EditRow{"replaced", "Core:\n  R: 1\nVideo:\n  R: 100 # c\n  V: 60\n", "Video>R", "150",
                "Core:\n  R: 1\nVideo:\n  R: 150 # c\n  V: 60\n"},
        EditRow{"nested", "Video:\n  R: 1\n  P:\n    Enabled: false\n    X: 1\n  Enabled: 7\n", "Video>P>Enabled",
                "true", "Video:\n  R: 1\n  P:\n    Enabled: true\n    X: 1\n  Enabled: 7\n"},
        EditRow{"added", "Video:\n  R: 1\n  P:\n    X: 1\n\nAudio:\n  V: 1\n", "Video>K", "3",
                "Video:\n  R: 1\n  P:\n    X: 1\n  K: 3\n\nAudio:\n  V: 1\n"},
        EditRow{"mappingAdded", "A:\n    x: 1\n", "V>K", "3", "A:\n    x: 1\nV:\n  K: 3\n"},
        EditRow{"chainAdded", "A:\n  x: 1", "A>b c>01.00>Enabled", "true",
                "A:\n  x: 1\n  b c:\n    01.00:\n      Enabled: true"},
        EditRow{"nothingThere", "", "V>K", "3", "V:\n  K: 3\n"},
        EditRow{"emptyMapping", "V:\nA: 1\n", "V>K", "3", "V:\n  K: 3\nA: 1\n"},
        EditRow{"emptyBraces", "V: {}\n", "V>K", "3", "V: {K: 3}\n"},
        EditRow{"braces", "V: {a: \"}\", K: 1 , b: [1, {K: 2}]} # c\n", "V>K", "3",
                "V: {a: \"}\", K: 3 , b: [1, {K: 2}]} # c\n"},
        EditRow{"addedInBraces", "V: {\n  a: 1\n}\nB: 2\n", "V>K", "3", "V: {\n  a: 1, K: 3\n}\nB: 2\n"},
        EditRow{"bracesBelow", "V:\n  {a: 1}\n", "V>K", "3", "V:\n  {a: 1, K: 3}\n"},
        EditRow{"wholeInBraces", "{V: {K: 1}}\n", "V>K", "3", "{V: {K: 3}}\n"},
        EditRow{"quotedKeys", "\"V\":\n  'it''s': 1\n", "V>it's", "3", "\"V\":\n  'it''s': 3\n"},
        EditRow{"quotedValue", "V:\n  K: \"a # b: c\" # d\n", "V>K", "3", "V:\n  K: 3 # d\n"},
        EditRow{"noValueButAComment", "V:\n  K:  # 1\n", "V>K", "3", "V:\n  K: 3  # 1\n"},
        EditRow{"noValueYet", "V:\n  K:\n  L: 1\n", "V>K", "3", "V:\n  K: 3\n  L: 1\n"},
        EditRow{"keyWithColon", "V:\n  a:b: 1\n", "V>a:b", "3", "V:\n  a:b: 3\n"},
        EditRow{"keyThatNeedsQuotes", "V:\n  x: 1\n", "V>R&C: All 4 One", "3", "V:\n  x: 1\n  \"R&C: All 4 One\": 3\n"},
        EditRow{"textHoldsNoKeys", "N: |\n  V:\n    K: 1\nV:\n  K: 2\n", "V>K", "3",
                "N: |\n  V:\n    K: 1\nV:\n  K: 3\n"},
        EditRow{"sequenceHoldsNoKeys", "V:\n  L:\n  - K: 1\n  - x\n  K: 2\n", "V>K", "3",
                "V:\n  L:\n  - K: 1\n  - x\n  K: 3\n"},
        EditRow{"emptySequenceBelow", "V:\n  L:\n    []\n  K: 2\n", "V>K", "3", "V:\n  L:\n    []\n  K: 3\n"},
        EditRow{"comments", "# V: x\nV: # K: 0\n  # K: 1\n  K: 2\n", "V>K", "3",
                "# V: x\nV: # K: 0\n  # K: 1\n  K: 3\n"},
        EditRow{"documentMark", "%YAML 1.2\n---\nV:\n  K: 2\n", "V>K", "3", "%YAML 1.2\n---\nV:\n  K: 3\n"},
        EditRow{"anchor", "V: &a\n  K: 2\n", "V>K", "3", "V: &a\n  K: 3\n"},
        EditRow{"windowsLineEnds", "V:\r\n  x: 1\r\nB: 1\r\n", "V>K", "3", "V:\r\n  x: 1\r\n  K: 3\r\nB: 1\r\n"},
        EditRow{"twice", "V:\n  K: 1\nV:\n  K: 2\n", "V>K", "3", "V:\n  K: 3\nV:\n  K: 3\n"},
        EditRow{"removed", "V:\n  K: 1\n  x: 2\n", "V>K", "", "V:\n  x: 2\n"},
        EditRow{"removedWithWhatItLeavesEmpty", "A:\n  B:\n    C:\n      K: 1\n  x: 2\n", "A>B>C>K", "",
                "A:\n  x: 2\n"},
        EditRow{"removedButAComment", "A:\n  B:\n    # mine\n    K: 1\n", "A>B>K", "", "    # mine\n"},
        EditRow{"removedInBraces", "V: {x: 1, K: 2}\nW: {K: 1, y: 2}\n", "V>K", "", "V: {x: 1}\nW: {K: 1, y: 2}\n"},
        EditRow{"scalarInTheWay", "V: 1\n", "V>K", "3", "?"}, EditRow{"aliasInTheWay", "V: *a\n", "V>K", "3", "?"},
        EditRow{"sequenceInTheWay", "V:\n  - K: 1\n", "V>K", "3", "?"},
        EditRow{"mappingAsValue", "V:\n  K:\n    x: 1\n", "V>K", "3", "?"},
        EditRow{"topIsASequence", "- V: 1\n", "V>K", "3", "?"},
        EditRow{"textBehindQuotes", "V:\n  K: 'a': b\n", "V>K", "3", "?"},
        EditRow{"openBrace", "V: {K: 1\n", "V>K", "3", "?"}, EditRow{"tabs", "V:\n\tK: 1\n", "V>K", "3", "?"},
        EditRow{"noYaml", "hello\n", "V>K", "3", "?"}),
    nameOf);

class XmlEdit : public testing::TestWithParam<EditRow> { };
TEST_P(XmlEdit, changesOneElement)
{
    expectEdit(GetParam(), [&](const QByteArray &text, const QStringList &values) {
        return editXml(text, parts(GetParam().place, u'>'), values);
    });
}
INSTANTIATE_TEST_SUITE_P(
    Texts, XmlEdit,
    testing::Values(
        EditRow{"replaced", "<?xml version=\"1.0\"?>\n<c>\n  <a><k>1</k></a>\n  <k>2</k>\n</c>\n", "c>a>k", "3",
                "<?xml version=\"1.0\"?>\n<c>\n  <a><k>3</k></a>\n  <k>2</k>\n</c>\n"},
        EditRow{"closesItself", "<c><k x=\"/>\" /></c>", "c>k", "3", "<c><k x=\"/>\">3</k></c>"},
        EditRow{"added", "<c>\r\n  <x/>\r\n</c>\r\n", "c>k", "3", "<c>\r\n  <x/>\r\n  <k>3</k>\r\n</c>\r\n"},
        EditRow{"chainAdded", "<c>\n    <x/>\n</c>\n", "c>a>k", "3",
                "<c>\n    <x/>\n    <a>\n        <k>3</k>\n    </a>\n</c>\n"},
        EditRow{"addedToEmptyParent", "<c>\n  <a/>\n</c>\n", "c>a>k", "3",
                "<c>\n  <a>\n      <k>3</k>\n  </a>\n</c>\n"},
        EditRow{"commentsHoldNothing", "<c><!-- <k>1</k> --><![CDATA[<k>2</k>]]><k>3</k></c>", "c>k", "4",
                "<c><!-- <k>1</k> --><![CDATA[<k>2</k>]]><k>4</k></c>"},
        EditRow{"entitiesStay", "<!DOCTYPE c [<!ENTITY e \"]>&f;&f;\">]><c><k>&e;</k><x>&e;</x></c>", "c>k", "4",
                "<!DOCTYPE c [<!ENTITY e \"]>&f;&f;\">]><c><k>4</k><x>&e;</x></c>"},
        EditRow{"sameNameDeeper", "<c><c><k>1</k></c><k>2</k></c>", "c>k", "4", "<c><c><k>1</k></c><k>4</k></c>"},
        EditRow{"twice", "<c><k>1</k><k>2</k></c>", "c>k", "4", "<c><k>4</k><k>4</k></c>"},
        EditRow{"removed", "<c>\n  <k>1</k>\n  <x/>\n</c>", "c>k", "", "<c>\n  <x/>\n</c>"},
        EditRow{"removedWithinALine", "<c><x/><k>1</k></c>", "c>k", "", "<c><x/></c>"},
        EditRow{"otherRoot", "<d><k>1</k></d>", "c>k", "3", "?"},
        EditRow{"elementsInside", "<c><k><x/></k></c>", "c>k", "3", "?"},
        EditRow{"wrongOrder", "<c><a></c></a>", "c>k", "3", "?"}, EditRow{"notClosed", "<c><k>1</k>", "c>k", "3", "?"},
        EditRow{"openTag", "<c><k", "c>k", "3", "?"}, EditRow{"openComment", "<c><!-- </c>", "c>k", "3", "?"},
        EditRow{"nothing", "", "c>k", "3", "?"}),
    nameOf);

TEST(XmlText, listsGrowAndShrink)
{
    const QStringList path{u"c"_s, u"P"_s, u"E"_s};
    const QByteArray one = "<c>\n  <P>\n    <E>/a</E>\n  </P>\n</c>";
    const QByteArray two = "<c>\n  <P>\n    <E>/a</E>\n    <E>/b &amp; c</E>\n  </P>\n</c>";
    EXPECT_EQ(withXmlElement(one, path, xmlOfText(u"/b & c"_s)), two);
    EXPECT_EQ(textOfXml(xmlValues(two, path).value(1)), u"/b & c"_s);
    EXPECT_EQ(withoutXmlElement(two, path, u"/b &amp; c"_s), one);
    EXPECT_EQ(textOfXml(u"&lt;&#65;&#x42;&e;&amp;lt;"_s), u"<AB&e;&lt;"_s);
}

/// Every editor goes through these in a moment, whatever it answers.
TEST(ConfigText, hostileTextsEndNothing)
{
    const QByteArray manySigns = QByteArray(200'000, '{') + QByteArray(200'000, '[') + QByteArray(200'000, '<');
    QByteArray deepYaml, deepXml;
    for (int i = 0; i < 2000; ++i)
        deepYaml += QByteArray(i, ' ') + "a:\n";
    for (int i = 0; i < 100'000; ++i)
        deepXml += "<a>";
    const QList<QByteArray> texts{manySigns,
                                  deepYaml,
                                  deepXml,
                                  QByteArray(10'000'000, 'x'),
                                  "k: " + QByteArray(1'000'000, '{'),
                                  "k = " + QByteArray(1'000'000, '['),
                                  QByteArray(100'000, '\''),
                                  "\xef\xbb\xbf",
                                  "\xff\xfe[\0A\0"};
    for (const QByteArray &text : texts) {
        EXPECT_TRUE(editIni(text, u"A"_s, u"k"_s, {u"1"_s}).contains("k = 1"));
        editToml(text, {u"A"_s}, u"k"_s, {u"1"_s});
        editYaml(text, {u"a"_s, u"a"_s, u"a"_s, u"k"_s}, {u"1"_s});
        editXml(text, {u"a"_s, u"k"_s}, {u"1"_s});
    }
}
