#pragma once

#include "library/RomScanner.h"

#include <QObject>
#include <atomic>
#include <memory>

class Tasks;

/// Looks for games in folders and files in the background, one list of them after the other. Main thread only.
class FolderScan : public QObject {
    Q_OBJECT
public:
    FolderScan(Tasks &tasks, Host host) : m_tasks(tasks), m_host(host) { }
    ~FolderScan() override;

    bool running() const { return m_goesOn != nullptr; }
    int examined() const { return m_examined; } ///< entries looked at so far

    void start(const QStringList &paths); ///< while a scan is under way: after it
    void cancel(); ///< of what waits nothing is scanned; what was found so far still comes

signals:
    void changed(); ///< `running` or `examined`
    void found(const ScanFindings &findings); ///< once for each scan, when it is over

private:
    void finish(const ScanFindings &findings);

    Tasks &m_tasks;
    Host m_host;
    int m_examined = 0;
    std::shared_ptr<std::atomic<bool>> m_goesOn; ///< shared with the background
    QStringList m_waiting;
};
