#include "emulators/controllers/ControllerClass.h"

#include <QStringList>

using namespace Qt::StringLiterals;

ControllerClass controllerClass(const QString &emulatorID)
{
    static const QStringList automatic{u"pcsx2"_s, u"duckstation"_s};
    static const QStringList nothingToDo{u"flycast"_s, u"xemu"_s, u"mgba"_s, u"shadps4"_s, u"nxnative"_s, u"native"_s};
    if (automatic.contains(emulatorID)) return ControllerClass::automatic;
    return nothingToDo.contains(emulatorID) ? ControllerClass::nothingToDo : ControllerClass::manual;
}
