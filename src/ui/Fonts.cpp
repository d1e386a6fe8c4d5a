#include "ui/Fonts.h"

#include "platform/Tasks.h"

#include <QFontMetricsF>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

void readFonts(Tasks &tasks)
{
    tasks.run(
        QCoreApplication::instance(),
        [] {
            // What stands in for a family's missing letters is looked up with its first font, for all sizes.
            for (const QString &family : {u"Inter"_s, u"Inter Display"_s, QGuiApplication::font().family()})
                static_cast<void>(QFontMetricsF(QFont(family)).height());
        },
        [] {});
}
