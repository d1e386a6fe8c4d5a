#include "ui/window/Fonts.h"

#include "platform/Tasks.h"

#include <QFontMetricsF>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

void nameFontSubstitutes()
{
    // Qt does not guard the list, and the task below reads it.
    if (!QFont::substitutes(u"Inter"_s).isEmpty()) return;
    QFont::insertSubstitutions(u"Inter"_s, {u"Noto Sans"_s, u"DejaVu Sans"_s});
    QFont::insertSubstitutions(u"Inter Display"_s, {u"Inter"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
}

void readFonts(Tasks &tasks)
{
    nameFontSubstitutes();
    tasks.run(
        QCoreApplication::instance(),
        [] {
            // What stands in for a family's missing letters is looked up with its first font, for all sizes.
            for (const QString &family : {u"Inter"_s, u"Inter Display"_s, QGuiApplication::font().family()})
                static_cast<void>(QFontMetricsF(QFont(family)).height());
        },
        [] {});
}
