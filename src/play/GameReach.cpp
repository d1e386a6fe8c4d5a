#include "play/GameReach.h"

#include "platform/ProcessControl.h"

#include <algorithm>

QList<AppWindow> GameReach::windowsOf(qint64 pid) const
{
    QList<AppWindow> all = windows.windowsOf(processes.tree(pid));
    const auto active = windows.activeWindow();
    const auto has = [&](quint64 id) { return id != 0 && std::ranges::find(all, id, &AppWindow::id) != all.end(); };
    if (active && !has(active->id) && has(active->transientFor)) all += *active;
    return all;
}

bool GameReach::isInFront(qint64 pid) const
{
    const auto active = windows.activeWindow();
    return active && processes.tree(pid).contains(active->pid);
}
