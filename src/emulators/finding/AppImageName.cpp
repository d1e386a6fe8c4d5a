#include "emulators/finding/AppImageName.h"

#include <QRegularExpression>
#include <QVersionNumber>
#include <algorithm>

using namespace Qt::StringLiterals;

static QStringList words(const QString &name)
{
    static const QRegularExpression between(u"[^a-z0-9]+"_s);
    return name.toLower().split(between, Qt::SkipEmptyParts);
}

static bool isForeign(const QString &word, const QString &architecture)
{
    static const QStringList arm{u"arm64"_s, u"aarch64"_s, u"armhf"_s};
    static const QStringList intel{u"x64"_s, u"x86"_s, u"amd64"_s, u"linux64"_s};
    return architecture == "arm64"_L1 ? intel.contains(word) : arm.contains(word);
}

bool beginsLikeAppImageOf(const EmulatorDef &def, const QString &name)
{
    return std::any_of(def.appImagePrefixes.begin(), def.appImagePrefixes.end(), [&name](const QString &prefix) {
        if (!name.startsWith(prefix, Qt::CaseInsensitive)) return false;
        return name.size() == prefix.size() || !name[prefix.size()].isLetter();
    });
}

bool isAppImageOf(const EmulatorDef &def, const QString &fileName, const QString &architecture)
{
    static const QStringList unwanted{u"dbg"_s, u"debug"_s, u"symbols"_s, u"room"_s, u"qtlauncher"_s};
    if (!fileName.endsWith(".appimage"_L1, Qt::CaseInsensitive)) return false;
    if (!beginsLikeAppImageOf(def, fileName.chopped(9))) return false;
    const QStringList all = words(fileName);
    return std::none_of(all.begin(), all.end(), [&architecture](const QString &word) {
        return unwanted.contains(word) || isForeign(word, architecture);
    });
}

/// The first number that stands for itself, with what is joined to it: "v0.0.38-18364" gives 0.0.38.18364.
static QVersionNumber versionIn(const QString &fileName)
{
    static const QRegularExpression number(u"(?<![a-z0-9])v?(\\d+(?:[.-]\\d+)*)"_s);
    QString name = fileName.toLower();
    name.remove("x86_64"_L1);
    return QVersionNumber::fromString(number.match(name).captured(1).replace(u'-', u'.'));
}

QStringList newestFirst(QStringList fileNames)
{
    std::stable_sort(fileNames.begin(), fileNames.end(), [](const QString &a, const QString &b) {
        const QVersionNumber first = versionIn(a);
        const QVersionNumber second = versionIn(b);
        return first != second ? first > second : a.size() < b.size();
    });
    return fileNames;
}
