#pragma once

#include "platform/Workspace.h"

#include <QHash>
#include <QSet>

/// Programs that exist only in these lists.
class FakeWorkspace final : public Workspace {
public:
    QList<Application> installed;
    QHash<qint64, StartRequest> started; ///< by process identifier, also after the end
    QSet<qint64> running;
    std::optional<Message> refusal; ///< what `start` answers instead of starting
    QList<QUrl> opened;
    qint64 lastPid = 1000;

    QList<Application> applications() const override { return installed; }
    Result<qint64> start(const StartRequest &request) override
    {
        if (refusal) return *refusal;
        started.insert(++lastPid, request);
        running.insert(lastPid);
        return lastPid;
    }
    bool openAddress(const QUrl &address) override
    {
        opened += address;
        return true;
    }

    void end(qint64 pid, ProgramEnd how = {})
    {
        if (running.remove(pid)) emit ended(pid, how);
    }
};
