#include "ui/overlay/OverlaySurface.h"

using namespace Qt::StringLiterals;

double overlayScale(const QSize &display)
{
    return qBound(0.75, qMin(display.width() / 1920.0, display.height() / 1080.0), 3.0);
}

void loadOverlay(QQuickView &view, const QString &name, const QVariantMap &properties)
{
    view.setInitialProperties(properties);
    view.setSource(QUrl(u"qrc:/qt/qml/Velko/qml/overlay/"_s + name));
}
