#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A display for one test, with a window manager when one is named. It ends with the test.
class XServer {
public:
    enum class Kind {
        oneOutput, ///< a virtual frame buffer of 1280 × 720
        /// A real server with two outputs of 1920 × 1080, DUMMY0 on the left of DUMMY1; needs root. Monitors drawn over
        /// a frame buffer won't do: SDL sees one display there, kwin fills both, xfwm4 keeps windows on the left.
        twoOutputs,
    };
    explicit XServer(Kind kind = Kind::oneOutput, const QString &windowManager = QStringLiteral("openbox"));
    ~XServer();

    bool isReady() const { return m_ready; }
    const QByteArray &display() const { return m_display; }
    QList<qint64> processes() const { return {m_server.processId(), m_windowManager.processId()}; }
    QProcessEnvironment environment() const; ///< for programs on this display
    bool run(const QString &program, const QStringList &arguments) const; ///< and waits for its success
    /// Its environment is that of other programs, unless another one is given.
    bool manage(
        const QString &windowManager,
        const QProcessEnvironment &environment = {}); ///< starts it, instead of the present one; waits until it manages
    QString startBus(); ///< a message bus for the programs that start from now on; its address
    void kill(); ///< the server only

private:
    bool startServer(Kind kind);
    bool connectOutputs() const;

    QTemporaryDir m_folder;
    QProcess m_server, m_bus, m_windowManager;
    QByteArray m_display;
    QString m_busAddress;
    bool m_ready = false;
};
