#pragma once

#include "Desktop.h"
#include "platform/XServer.h"

#include <QProcess>
#include <QTemporaryDir>

/// A computer of its own for one test: a display with a window manager, a message bus, a home and a runtime folder.
/// Everything that runs on it ends with it, also what a program under test has left behind.
class VirtualDisplay {
public:
    explicit VirtualDisplay(XServer::Kind kind = XServer::Kind::oneOutput,
                            const QString &windowManager = QStringLiteral("openbox"));
    ~VirtualDisplay();

    bool isReady() const { return m_desktop && m_desktop->hasWindowManager(); }
    Desktop &desktop() const { return *m_desktop; }
    QByteArray name() const { return m_server.display(); } ///< ":5"
    QString home() const { return m_folder.path() + QStringLiteral("/home"); }
    QProcessEnvironment environment() const; ///< for programs that run on it
    QList<qint64> programs() const; ///< what was started on it and still runs; its own services are left out

    bool run(const QString &program, const QStringList &arguments) const; ///< and waits for its success

    /// Writes a file below the home, with its folders; answers its absolute path.
    QString write(const QString &name, const QByteArray &content, bool executable = false) const;
    QByteArray read(const QString &name) const;

private:
    void startBus();

    QTemporaryDir m_folder;
    XServer m_server;
    QProcess m_bus;
    QByteArray m_busAddress;
    std::unique_ptr<Desktop> m_desktop;
};
