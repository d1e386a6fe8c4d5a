#include "ui/images/BackdropImageProvider.h"
#include "ui/images/FrameImageProvider.h"
#include "ui/images/GlowImageProvider.h"
#include "ui/images/IconImageProvider.h"
#include "ui/images/ShadowImageProvider.h"

#include <QColor>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

void qml_register_types_Velko();

static bool hasColour(const QImage &image, QColor colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() == 255 && pixel.rgb() == colour.rgb()) return true;
        }
    }
    return false;
}

TEST(IconImageProvider, drawsInOneColourAndTheSizeAskedFor)
{
    qml_register_types_Velko();
    QSize size;
    const QImage heart = IconImageProvider().requestImage(u"heart-fill/ff3366"_s, &size, {40, 40});
    EXPECT_EQ(size, QSize(40, 40));
    EXPECT_TRUE(hasColour(heart, QColor(0xff, 0x33, 0x66)));
    EXPECT_FALSE(hasColour(heart, Qt::white));
    const QImage shoulder = IconImageProvider().requestImage(u"glyphs.lb/ffffff"_s, &size, {0, 28});
    EXPECT_EQ(shoulder.size(), QSize(42, 28));
    EXPECT_EQ(IconImageProvider().requestImage(u"no such icon/ffffff"_s, &size, {40, 40}).size(), QSize(40, 40));
}

TEST(GlowImageProvider, isTheColourInTheMiddleAndNothingAtTheEdge)
{
    QSize size;
    const QImage glow = GlowImageProvider().requestImage(u"336699"_s, &size, {});
    EXPECT_GT(qAlpha(glow.pixel(120, 67)), 240);
    for (int x = 0; x < glow.width(); ++x)
        EXPECT_LE(qAlpha(glow.pixel(x, 0)) + qAlpha(glow.pixel(x, 134)), 10) << x;
}

TEST(ImageProviders, answerAnyAddressWithAPicture)
{
    QSize size;
    for (const QString &id : {u""_s, u"/"_s, u"x"_s, u"999999x999999/1/ff0000"_s, u"-5x-5/-3/zz"_s, u"a/b/c/d/e"_s}) {
        EXPECT_FALSE(FrameImageProvider().requestImage(id, &size, {}).isNull()) << id.toStdString();
        EXPECT_FALSE(ShadowImageProvider().requestImage(id, &size, {}).isNull()) << id.toStdString();
        EXPECT_FALSE(GlowImageProvider().requestImage(id, &size, {}).isNull()) << id.toStdString();
        EXPECT_FALSE(BackdropImageProvider().requestImage(id, &size, {}).isNull()) << id.toStdString();
    }
}
