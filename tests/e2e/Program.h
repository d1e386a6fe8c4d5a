#pragma once

#include "VirtualDisplay.h"

#include <chrono>

/// One call of the program under test on a virtual display. Ended by force when it is still there at the end.
class Program {
public:
    Program(const VirtualDisplay &display, const QStringList &arguments);
    ~Program();

    bool ends(std::chrono::milliseconds limit); ///< waits for the end
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    int status() const; ///< after the end; -1: ended by a signal
    QByteArray output(); ///< standard output so far
    QByteArray errors(); ///< standard error so far
    qint64 pid() const { return m_process.processId(); }
    void kill() { m_process.kill(); }

private:
    QProcess m_process;
    QByteArray m_output, m_errors;
};
