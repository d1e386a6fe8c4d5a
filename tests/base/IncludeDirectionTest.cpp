#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// The chain of folders: one may include itself and what stands after it, nothing that stands before it.
static const QStringList chain{u"ui"_s,        u"app"_s,     u"play"_s,    u"tools"_s,    u"artwork"_s,
                               u"emulators"_s, u"library"_s, u"catalog"_s, u"platform"_s, u"base"_s};

static QStringList wrongIncludes(const QString &file, const QString &folder)
{
    QFile in(file);
    if (!in.open(QFile::ReadOnly)) return {file};
    static const QRegularExpression include(u"^\\s*#\\s*include\\s*[\"<](\\w+)/"_s,
                                            QRegularExpression::MultilineOption);
    QStringList wrong;
    auto matches = include.globalMatch(QString::fromUtf8(in.readAll()));
    while (matches.hasNext()) {
        const QString target = matches.next().captured(1);
        if (chain.contains(target) && chain.indexOf(target) < chain.indexOf(folder)) wrong += file + u": "_s + target;
    }
    return wrong;
}

TEST(IncludeDirection, goesDownTheChainOnly)
{
    const QString source = QString::fromUtf8(VELKO_SOURCE_DIR) + u"/src/"_s;
    int files = 0;
    for (const QString &folder : chain) {
        QDirIterator each(source + folder, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (each.hasNext()) {
            EXPECT_EQ(wrongIncludes(each.next(), folder), QStringList());
            ++files;
        }
    }
    EXPECT_GT(files, 20);
}
