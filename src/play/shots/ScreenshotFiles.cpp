#include "play/shots/ScreenshotFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtEndian>
#include <algorithm>

using namespace Qt::StringLiterals;

static const QString dateForm = u"yyyy-MM-dd HH.mm.ss"_s;

QString screenshotFolder(const QString &pictures)
{
    return pictures + u"/Velko"_s;
}

void prepareScreenshotFolder(const QString &pictures)
{
    const QString folder = screenshotFolder(pictures);
    const QString earlier = pictures + u"/VelkoEmu"_s;
    if (!QFileInfo::exists(folder) && QFileInfo(earlier).isDir()) QDir().rename(earlier, folder);
    QDir().mkpath(folder);
}

QString fileTitle(const QString &title)
{
    QString name = title;
    name.replace(u'/', u'-').replace(u':', u'-');
    for (QChar &character : name) {
        if (character.category() == QChar::Other_Control) character = u' ';
    }
    // A name has 255 bytes at most; the date and a number follow.
    while (name.toUtf8().size() > 220)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name;
}

QString screenshotPath(const QString &folder, const QString &title, const QDateTime &moment)
{
    const QString base =
        folder + u'/' + fileTitle(title) + u' ' + QLocale::c().toString(moment.toLocalTime(), dateForm);
    QString path = base + u".png"_s;
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = base + u' ' + QString::number(number) + u".png"_s;
    return path;
}

Screenshot parsedScreenshot(const QString &file, const QDateTime &changed)
{
    static const QRegularExpression form(uR"re(^(.*) (\d{4}-\d{2}-\d{2} \d{2}\.\d{2}\.\d{2})(?: (\d{1,4}))?$)re"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    const QString name = QFileInfo(file).completeBaseName();
    const auto match = form.match(name);
    const QDateTime date = QLocale::c().toDateTime(match.captured(2), dateForm);
    if (!date.isValid()) return {file, name, changed};
    return {file, match.captured(1), date, match.captured(3).isEmpty() ? 1 : match.captured(3).toInt()};
}

/// The size that the head of a PNG file names; empty for any other file.
static QSize pngSize(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return {};
    const QByteArray head = file.read(24);
    if (head.size() < 24 || !head.startsWith("\x89PNG\r\n\x1a\n") || head.sliced(12, 4) != "IHDR") return {};
    return {int(qFromBigEndian<quint32>(head.constData() + 16) & 0x7fffffff),
            int(qFromBigEndian<quint32>(head.constData() + 20) & 0x7fffffff)};
}

static bool fitsScreens(const QSize &size)
{
    constexpr int widest = 16384;
    return !size.isEmpty() && size.width() <= widest && size.height() <= widest
        && qint64(size.width()) * size.height() <= 64 * 1024 * 1024;
}

static QList<Screenshot> pictureIn(const QFileInfo &file)
{
    constexpr qint64 largest = 256 * 1024 * 1024;
    if (!file.isFile() || file.isSymLink() || file.size() > largest) return {};
    if (file.suffix().compare("png"_L1, Qt::CaseInsensitive) != 0) return {};
    Screenshot shot = parsedScreenshot(file.absoluteFilePath(), file.lastModified());
    shot.size = pngSize(shot.url);
    return fitsScreens(shot.size) ? QList{shot} : QList<Screenshot>();
}

bool isNewer(const Screenshot &one, const Screenshot &other)
{
    if (one.date != other.date) return one.date > other.date;
    if (one.number != other.number) return one.number > other.number;
    return one.url < other.url;
}

QList<Screenshot> listScreenshots(const QString &folder)
{
    QList<Screenshot> shots;
    const auto files = QDir(folder).entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::NoSort);
    for (const QFileInfo &file : files)
        shots += pictureIn(file);
    std::sort(shots.begin(), shots.end(), isNewer);
    return shots;
}

QList<Screenshot> listedScreenshot(const QString &file)
{
    return pictureIn(QFileInfo(file));
}
