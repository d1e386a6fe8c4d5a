#include "library/FolderScan.h"

#include "platform/Tasks.h"

#include <QPointer>
#include <utility>

FolderScan::~FolderScan()
{
    cancel();
}

void FolderScan::start(const QStringList &paths)
{
    if (running()) {
        m_waiting += paths;
        return;
    }
    m_examined = 0;
    m_goesOn = std::make_shared<std::atomic<bool>>(true);
    const RomScanner::GoOn goOn = [self = QPointer(this), &tasks = m_tasks, goesOn = m_goesOn](int examined) {
        tasks.post([self, goesOn, examined] {
            if (!self || self->m_goesOn != goesOn) return;
            self->m_examined = examined;
            emit self->changed();
        });
        return goesOn->load();
    };
    emit changed();
    m_tasks.run(
        this, [host = m_host, paths, goOn] { return RomScanner(host).scan(paths, goOn); },
        [this](const ScanFindings &findings) { finish(findings); });
}

void FolderScan::finish(const ScanFindings &findings)
{
    m_goesOn.reset();
    emit found(findings);
    emit changed();
    if (!running() && !m_waiting.isEmpty()) start(std::exchange(m_waiting, {}));
}

void FolderScan::cancel()
{
    m_waiting.clear();
    if (m_goesOn) *m_goesOn = false;
}
