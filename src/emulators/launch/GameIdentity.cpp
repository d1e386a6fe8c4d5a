#include "emulators/launch/GameIdentity.h"

#include "emulators/launch/LaunchChecks.h"
#include "emulators/patches/ArchiveUnpacking.h"
#include "emulators/patches/ParamSfo.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

static constexpr qint64 largestSfo = 1024 * 1024;

static std::optional<GameIdentity> identityOf(const QByteArray &sfo)
{
    const auto serial = sfoText(sfo, "TITLE_ID");
    if (!serial) return {};
    return GameIdentity{*serial, sfoText(sfo, "APP_VER").value_or(QString())};
}

static std::optional<GameIdentity> identityIn(const QString &sfoFile)
{
    QFile file(sfoFile);
    if (!QFileInfo(sfoFile).isFile() || !file.open(QFile::ReadOnly)) return {};
    return identityOf(file.read(largestSfo));
}

/// A serial becomes part of a path.
static bool isSerial(const QString &text)
{
    return !text.isEmpty() && text.size() <= 16 && std::ranges::all_of(text, [](QChar c) {
        return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_' || c == u'-';
    });
}

std::optional<GameIdentity> ps3Identity(const QString &gamePath, const QString &installedGames)
{
    QString folder = QFileInfo(gamePath).isDir() ? gamePath : QFileInfo(gamePath).path();
    const bool disc = gamePath.endsWith(".iso"_L1, Qt::CaseInsensitive);
    std::optional<GameIdentity> identity;
    if (disc)
        identity = identityOf(fileInDisc(gamePath, u"PS3_GAME/PARAM.SFO"_s, largestSfo).value_or(QByteArray()));
    else
        identity = identityIn(folder + u"/PS3_GAME/PARAM.SFO"_s);
    // The program lies in USRDIR, beside which is PARAM.SFO.
    for (int level = 0; level < 3 && !identity && !disc; ++level) {
        identity = identityIn(folder + u"/PARAM.SFO"_s);
        folder = QFileInfo(folder).path();
    }
    if (!identity || !isSerial(identity->serial)) return {};
    const auto installed = identityIn(installedGames + u'/' + identity->serial + u"/PARAM.SFO"_s);
    if (installed && !installed->version.isEmpty()) identity->version = installed->version;
    return identity;
}

std::optional<GameIdentity> ps4Identity(const QString &gamePath)
{
    const QString sfo = u"/sce_sys/param.sfo"_s;
    const auto folder = ps4GameFolder(gamePath);
    if (!folder) return {};
    std::optional<GameIdentity> identity = identityIn(*folder + sfo);
    if (!identity || !isSerial(identity->serial)) return {};
    for (const QString &suffix : {u"-UPDATE"_s, u"-patch"_s}) {
        const auto update = identityIn(*folder + suffix + sfo);
        if (update && update->serial == identity->serial && !update->version.isEmpty()) identity = update;
    }
    return identity;
}
