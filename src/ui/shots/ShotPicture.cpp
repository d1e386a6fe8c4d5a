#include "ui/shots/ShotPicture.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>

using namespace Qt::StringLiterals;

QString shotSource(const QString &file)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(QFileInfo(file).fileName()));
}

std::optional<ShotRequest> shotRequest(const QString &address)
{
    static const QRegularExpression form(
        uR"re(^([^/]+)/(?:(whole)/([0-9]{1,4})x([0-9]{1,4})|([0-9]{1,4})x([0-9]{1,4})/([0-9]{1,3}))$)re"_s);
    const auto match = form.match(address);
    if (!match.hasMatch()) return {};
    ShotRequest request;
    request.name = QUrl::fromPercentEncoding(match.captured(1).toLatin1());
    request.whole = match.capturedLength(2) > 0;
    const int first = request.whole ? 3 : 5;
    request.size = {match.captured(first).toInt(), match.captured(first + 1).toInt()};
    request.radius = match.captured(7).toInt();
    constexpr int screen = 8192;
    if (request.size.isEmpty() || request.size.width() > screen || request.size.height() > screen) return {};
    if (request.name.contains(u'/') || request.name == "."_L1 || request.name == ".."_L1) return {};
    return request;
}

/// In that size: within it, or filling it.
static QImage read(const QString &file, const QSize &size, bool whole)
{
    QImageReader reader(file, "png");
    const QSize own = reader.size();
    if (own.isEmpty()) return {};
    QSize scaled = own.scaled(size, whole ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding);
    if (whole && own.width() <= size.width() && own.height() <= size.height()) scaled = own;
    // A game of few pixels keeps them sharp.
    const bool enlarged = scaled.width() > own.width();
    QImage picture = reader.read();
    if (picture.isNull()) return {};
    picture =
        picture.scaled(scaled, Qt::IgnoreAspectRatio, enlarged ? Qt::FastTransformation : Qt::SmoothTransformation);
    if (whole) return picture;
    return picture.copy((scaled.width() - size.width()) / 2, (scaled.height() - size.height()) / 2, size.width(),
                        size.height());
}

static QString cacheFile(const QFileInfo &file, const QSize &size, const QString &cache)
{
    const QString key = file.fileName() + u'|' + QString::number(file.size()) + u'|'
        + QString::number(file.lastModified().toMSecsSinceEpoch());
    const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256).first(12).toHex();
    return cache + u"/%1-%2x%3.jpg"_s.arg(QString::fromLatin1(hash)).arg(size.width()).arg(size.height());
}

/// The oldest go when there are too many.
static void makeRoom(const QString &cache)
{
    constexpr int most = 2000;
    const auto files = QDir(cache).entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Time);
    for (qsizetype i = most; i < files.size(); ++i)
        QFile::remove(files[i].filePath());
}

static QImage small(const QString &file, const QSize &size, const QString &cache)
{
    const QString kept = cacheFile(QFileInfo(file), size, cache);
    const QImage known(kept);
    if (known.size() == size) return known;
    const QImage picture = read(file, size, false).convertToFormat(QImage::Format_RGB32);
    if (picture.isNull()) return {};
    QDir().mkpath(cache);
    // Without the file it is made again the next time.
    QSaveFile out(kept);
    if (out.open(QSaveFile::WriteOnly) && picture.save(&out, "JPG", 88) && out.commit()) makeRoom(cache);
    return picture;
}

static QImage rounded(const QImage &picture, int radius)
{
    QImage result(picture.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(), QSizeF(picture.size())), radius, radius);
    painter.fillPath(shape, QBrush(picture));
    return result;
}

QImage shotPicture(const QString &file, const ShotRequest &request, const QString &cache)
{
    const QFileInfo info(file);
    if (!info.isFile() || info.isSymLink()) return {};
    if (request.whole) return read(file, request.size, true);
    const QImage picture = small(file, request.size, cache);
    return picture.isNull() || request.radius == 0 ? picture : rounded(picture, request.radius);
}
