#include "ui/focus/PadSurface.h"

#include <QQmlEngine>

PadSurface *PadSurface::of(QObject *item)
{
    return qobject_cast<PadSurface *>(qmlAttachedPropertiesObject<PadSurface>(item, false));
}
