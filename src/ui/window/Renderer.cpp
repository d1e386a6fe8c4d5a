#include "ui/window/Renderer.h"

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
    // A second choice comes too late and is complained about.
    if (QQuickWindow::sceneGraphBackend() != u"software") QQuickWindow::setSceneGraphBackend(u"software"_s);
}
