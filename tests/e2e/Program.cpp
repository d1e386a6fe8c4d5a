#include "Program.h"

#include "Waiting.h"

using namespace Qt::StringLiterals;

Program::Program(const VirtualDisplay &display, const QStringList &arguments)
{
    m_process.setProcessEnvironment(display.environment());
    m_process.setWorkingDirectory(display.home());
    m_process.start(QStringLiteral(VELKO_BUILD_DIR "/velko"), arguments);
}

Program::~Program()
{
    if (!isRunning()) return;
    m_process.kill();
    m_process.waitForFinished(2000);
}

bool Program::ends(std::chrono::milliseconds limit)
{
    return waitFor(limit, [this] { return !isRunning(); });
}

int Program::status() const
{
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QByteArray Program::output()
{
    return m_output += m_process.readAllStandardOutput();
}

QByteArray Program::errors()
{
    return m_errors += m_process.readAllStandardError();
}
