#include "ui/Renderer.h"

#include <QDir>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

bool hasGraphicsCard(const QString &folder)
{
    return !QDir(folder).entryList({u"renderD*"_s}, QDir::System | QDir::Files).isEmpty();
}

void chooseRenderer()
{
    if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") || hasGraphicsCard(u"/dev/dri"_s)) return;
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}
