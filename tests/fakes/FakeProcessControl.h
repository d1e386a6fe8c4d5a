#pragma once

#include "platform/ProcessControl.h"

#include <map>
#include <set>
#include <vector>

/// Programs that exist only in these sets.
struct FakeProcessControl final : ProcessControl {
    std::map<qint64, RunningProcess> processes;
    std::set<qint64> frozen;
    std::set<qint64> stubborn; ///< do not end when asked; a frozen one does not either
    std::set<qint64> immortal; ///< do not even end by force
    std::map<qint64, qint64> written; ///< bytes on disk
    std::vector<qint64> asked; ///< to quit, in this order

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
    qint64 bytesWritten(qint64 pid) const override
    {
        qint64 sum = 0;
        for (const qint64 each : tree(pid)) {
            const auto bytes = written.find(each);
            if (bytes != written.end()) sum += bytes->second;
        }
        return sum;
    }
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
        if (!isAlive(pid)) return false;
        asked.push_back(pid);
        if (!stubborn.contains(pid) && !frozen.contains(pid)) processes.erase(pid);
        return true;
    }
    bool kill(qint64 pid) override { return isAlive(pid) && (immortal.contains(pid) || processes.erase(pid) == 1); }
};
