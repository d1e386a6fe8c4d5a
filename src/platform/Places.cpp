#include "platform/Places.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

static QString absoluteOr(const QString &value, const QString &fallback)
{
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : fallback;
}

static QStringList absoluteParts(const QString &list)
{
    QStringList parts;
    for (const QString &part : list.split(u':', Qt::SkipEmptyParts)) {
        if (QDir::isAbsolutePath(part)) parts += QDir::cleanPath(part);
    }
    return parts;
}

/// user-dirs.dirs of the desktop: lines such as XDG_PICTURES_DIR="$HOME/Pictures".
static QString userFolder(const QString &config, const QString &home, const QString &name, const QString &fallback)
{
    QFile file(config + u"/user-dirs.dirs"_s);
    if (!file.open(QFile::ReadOnly)) return fallback;
    static const QRegularExpression line(uR"re(^\s*(XDG_\w+_DIR)="(.*)"\s*$)re"_s, QRegularExpression::MultilineOption);
    auto matches = line.globalMatch(QString::fromUtf8(file.read(64 * 1024)));
    QString found = fallback;
    while (matches.hasNext()) {
        const auto match = matches.next();
        if (match.captured(1) != name) continue;
        QString value = match.captured(2);
        if (value.startsWith("$HOME/"_L1)) value = home + value.mid(5);
        found = absoluteOr(value, fallback);
    }
    return found;
}

QString Places::dataFolder() const
{
    return data + u"/VelkoEmu"_s;
}

QString Places::libraryFile() const
{
    return dataFolder() + u"/library.json"_s;
}

QString Places::preferencesFile() const
{
    return config + u"/VelkoEmu/preferences.ini"_s;
}

QString Places::legacyPreferencesFile() const
{
    return config + u"/VelkoEmu/com.tarn.VelkoEmu.ini"_s;
}

QString Places::logFolder() const
{
    return host == Host::mac ? state : state + u"/VelkoEmu"_s;
}

QString Places::logFile() const
{
    return logFolder() + u"/Velko.log"_s;
}

QString Places::placementLogFile() const
{
    return logFolder() + u"/Velko-placement.log"_s;
}

Places linuxPlaces(const QString &home, const QProcessEnvironment &environment)
{
    const auto folder = [&](const QString &variable, const QString &fallback) {
        return absoluteOr(environment.value(variable), home + fallback);
    };
    Places places;
    places.host = Host::linux;
    places.home = home;
    places.config = folder(u"XDG_CONFIG_HOME"_s, u"/.config"_s);
    places.data = folder(u"XDG_DATA_HOME"_s, u"/.local/share"_s);
    places.cache = folder(u"XDG_CACHE_HOME"_s, u"/.cache"_s);
    places.state = folder(u"XDG_STATE_HOME"_s, u"/.local/state"_s);
    places.runtime = absoluteOr(environment.value(u"XDG_RUNTIME_DIR"_s), places.logFolder() + u"/run"_s);
    places.pictures = userFolder(places.config, home, u"XDG_PICTURES_DIR"_s, home + u"/Pictures"_s);

    places.dataDirs = QStringList{places.data}
        + absoluteParts(environment.value(u"XDG_DATA_DIRS"_s, u"/usr/local/share:/usr/share"_s));
    places.dataDirs += {places.data + u"/flatpak/exports/share"_s, u"/var/lib/flatpak/exports/share"_s};
    places.dataDirs.removeDuplicates();

    // Debian keeps emulators in /usr/games, which is not on every PATH.
    places.programDirs = absoluteParts(environment.value(u"PATH"_s));
    places.programDirs += {u"/usr/games"_s, u"/usr/local/games"_s};
    places.programDirs.removeDuplicates();

    places.waylandSession = !environment.value(u"WAYLAND_DISPLAY"_s).isEmpty();
    places.displayPresent = places.waylandSession || !environment.value(u"DISPLAY"_s).isEmpty();

    places.applicationDirs = {u"/opt"_s};
    places.libraryDirs = {u"/usr/lib/x86_64-linux-gnu"_s, u"/usr/lib/aarch64-linux-gnu"_s, u"/usr/lib64"_s,
                          u"/usr/lib"_s, u"/usr/local/lib"_s};
    return places;
}

Places macPlaces(const QString &home)
{
    Places places;
    places.host = Host::mac;
    places.home = home;
    places.config = home + u"/Library/Application Support"_s;
    places.data = places.config;
    places.cache = home + u"/Library/Caches"_s;
    places.state = home + u"/Library/Logs"_s;
    places.runtime = places.cache + u"/VelkoEmu"_s;
    places.pictures = home + u"/Pictures"_s;
    places.dataDirs = {places.data};
    places.applicationDirs = {u"/Applications"_s};
    return places;
}
