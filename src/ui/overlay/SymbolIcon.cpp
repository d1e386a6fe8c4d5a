#include "ui/overlay/SymbolIcon.h"

#include <QHash>

using namespace Qt::StringLiterals;

QString symbolIcon(const QString &symbol)
{
    static const QHash<QString, QString> drawings{
        {u"square.and.arrow.down.fill"_s, u"save"_s},
        {u"clock.arrow.circlepath"_s, u"load"_s},
        {u"camera.fill"_s, u"camera"_s},
        {u"checkmark.circle.fill"_s, u"check"_s},
        {u"xmark.circle.fill"_s, u"cancel"_s},
        {u"exclamationmark.triangle.fill"_s, u"warning"_s},
        {u"questionmark.circle"_s, u"question"_s},
        {u"keyboard"_s, u"keyboard"_s},
    };
    return symbol.isEmpty() ? QString() : drawings.value(symbol, u"info"_s);
}

QString symbolKind(const QString &symbol)
{
    const QString icon = symbolIcon(symbol);
    if (icon == u"warning") return u"warn"_s;
    if (icon == u"cancel") return u"quiet"_s;
    return QStringList{u"save"_s, u"load"_s, u"camera"_s, u"check"_s}.contains(icon) ? u"ok"_s : u"plain"_s;
}
