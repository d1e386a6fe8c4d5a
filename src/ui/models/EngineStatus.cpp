#include "ui/models/EngineStatus.h"

using namespace Qt::StringLiterals;

EngineStatus engineStatus(const Console &console, bool known, bool installed)
{
    switch (console.engine) {
    case Engine::unavailable:
        return EngineStatus::unavailable;
    case Engine::nxnative:
        return EngineStatus::nativeBuild;
    case Engine::nativeApp:
        return EngineStatus::nativeApps;
    case Engine::emulator:
        break;
    }
    if (!known) return EngineStatus::unknown;
    return installed ? EngineStatus::ready : EngineStatus::emulatorNeeded;
}

QString displayText(EngineStatus status)
{
    switch (status) {
    case EngineStatus::unknown:
        return {};
    case EngineStatus::ready:
        return u"Ready"_s;
    case EngineStatus::emulatorNeeded:
        return u"Emulator needed"_s;
    case EngineStatus::unavailable:
        return u"Not available yet"_s;
    case EngineStatus::nativeBuild:
        return u"Native"_s;
    case EngineStatus::nativeApps:
        return u"Mac apps"_s;
    }
    return {};
}

QString dotName(EngineStatus status)
{
    switch (status) {
    case EngineStatus::ready:
        return u"ok"_s;
    case EngineStatus::emulatorNeeded:
        return u"warn"_s;
    case EngineStatus::nativeBuild:
    case EngineStatus::nativeApps:
        return u"info"_s;
    case EngineStatus::unknown:
    case EngineStatus::unavailable:
        break;
    }
    return u"off"_s;
}
