#include "ui/Fonts.h"

#include "platform/Tasks.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>

using namespace Qt::StringLiterals;

static QString firstInstalled(const QStringList &families)
{
    const auto family = std::ranges::find_if(families, &QFontDatabase::hasFamily);
    return family == families.end() ? QGuiApplication::font().family() : *family;
}

QString Fonts::text() const
{
    return firstInstalled({u"Inter"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
}

QString Fonts::display() const
{
    return firstInstalled({u"Inter Display"_s, u"Inter"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
}

void readFonts(Tasks &tasks)
{
    tasks.run(
        QCoreApplication::instance(),
        [] {
            const Fonts fonts;
            // What stands in for a family's missing letters is looked up with its first font, for all sizes.
            for (const QString &family : {fonts.text(), fonts.display(), QGuiApplication::font().family()})
                static_cast<void>(QFontMetricsF(QFont(family)).height());
        },
        [] {});
}
