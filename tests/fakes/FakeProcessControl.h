#pragma once

#include "platform/ProcessControl.h"

#include <map>
#include <set>

/// Programs that exist only in these sets.
struct FakeProcessControl final : ProcessControl {
    std::map<qint64, RunningProcess> processes;
    std::set<qint64> frozen;
    std::set<qint64> stubborn; ///< do not end when asked

    QList<RunningProcess> running() const override
    {
        QList<RunningProcess> all;
        for (const auto &[pid, process] : processes)
            all += process;
        return all;
    }
    QList<qint64> tree(qint64 pid) const override
    {
        QList<qint64> all;
        if (processes.contains(pid)) all += pid;
        for (qsizetype i = 0; i < all.size(); ++i) {
            for (const auto &[child, process] : processes) {
                if (process.parent == all[i]) all += child;
            }
        }
        return all;
    }
    bool isAlive(qint64 pid) const override { return processes.contains(pid); }
    bool freeze(qint64 pid) override
    {
        for (const qint64 each : tree(pid))
            frozen.insert(each);
        return isAlive(pid);
    }
    bool thaw(qint64 pid) override
    {
        for (const qint64 each : tree(pid))
            frozen.erase(each);
        return isAlive(pid);
    }
    bool askToQuit(qint64 pid) override
    {
        return isAlive(pid) && (stubborn.contains(pid) || processes.erase(pid) == 1);
    }
    bool kill(qint64 pid) override { return processes.erase(pid) == 1; }
};
