#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// Each further module is a package of its own whose absence shows only at run time, and where there is no graphics card
// an effect draws nothing, nor does what it is put on.
TEST(QmlFiles, importNoFurtherModuleAndUseNoEffect)
{
    static const QRegularExpression unwanted(
        uR"re(^\s*import\s+(?!(?:QtQuick|Velko)(?:\s|$)|")\S+|\bShaderEffect\w*|\blayer\s*(?:\.\s*|\{[^}]*\b)effect\b)re"_s,
        QRegularExpression::MultilineOption);
    QDirIterator each(QStringLiteral(VELKO_SOURCE_DIR "/src/ui/qml"), {u"*.qml"_s}, QDir::Files,
                      QDirIterator::Subdirectories);
    int files = 0;
    for (; each.hasNext(); ++files) {
        QFile file(each.next());
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        const auto match = unwanted.match(QString::fromUtf8(file.readAll()));
        EXPECT_EQ(match.captured().toStdString(), "") << qPrintable(file.fileName());
    }
    EXPECT_GT(files, 20);
}
