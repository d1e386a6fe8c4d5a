#include "emulators/launch/EmulatorOpener.h"

#include "emulators/launch/LaunchPlan.h"

EmulatorOpener::EmulatorOpener(const Places &places, Workspace &workspace, QObject *parent)
    : QObject(parent), m_places(places), m_workspace(workspace)
{
    connect(&workspace, &Workspace::ended, this, [this](qint64 pid) {
        if (m_open.remove(pid)) emit changed();
    });
}

Result<void> EmulatorOpener::open(const InstalledEmulator &copy)
{
    LaunchFacts facts;
    facts.host = m_places.host;
    facts.home = m_places.home;
    facts.waylandSession = m_places.waylandSession;
    const LaunchPlan plan = planEmulatorAlone(copy, facts);
    const auto pid = m_workspace.start({plan.command, plan.environment, plan.workingFolder, {}});
    if (!pid) return pid.failure();
    m_open.insert(pid.value(), copy.emulatorID);
    emit changed();
    return {};
}

bool EmulatorOpener::isOpen(const QString &emulatorID) const
{
    return m_open.values().contains(emulatorID);
}
