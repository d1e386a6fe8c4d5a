#include "emulators/finding/RunningEmulators.h"

#include "catalog/EmulatorDef.h"
#include "emulators/finding/AppImageName.h"

#include <QSysInfo>

QList<qint64> processesOf(const QString &emulatorID, Host host, const QList<RunningProcess> &running)
{
    QList<qint64> pids;
    const EmulatorDef *def = emulatorWithID(emulatorID, host);
    if (!def) return pids;
    for (const RunningProcess &process : running) {
        const bool named = host == Host::mac ? def->appNames.contains(process.program)
                                             : def->programs.contains(process.program)
                || isAppImageOf(*def, process.program, QSysInfo::currentCpuArchitecture());
        if (named) pids += process.pid;
    }
    return pids;
}
