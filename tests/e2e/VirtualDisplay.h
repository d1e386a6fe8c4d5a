#pragma once

#include "Compositor.h"
#include "Desktop.h"
#include "platform/XServer.h"

#include <QProcess>
#include <QTemporaryDir>

/// A computer of its own for one test: a display with a window manager, a message bus, a home and a runtime folder.
/// Everything that runs on it ends with it, also what a program under test has left behind. A compositor in the place
/// of the window manager always has two outputs.
class VirtualDisplay {
public:
    explicit VirtualDisplay(XServer::Kind kind = XServer::Kind::oneOutput,
                            const QString &windowManager = QStringLiteral("openbox"));
    ~VirtualDisplay();

    bool isReady() const { return m_desktop && m_desktop->hasWindowManager(); }
    Desktop &desktop() const { return *m_desktop; }
    QByteArray name() const { return m_compositor ? m_compositor->display() : m_server ? m_server->display() : ""; }
    QString home() const { return m_folder.path() + QStringLiteral("/home"); }
    QProcessEnvironment environment() const; ///< for programs that run on it
    QList<qint64> programs() const; ///< what was started on it and still runs; its own services are left out

    bool run(const QString &program, const QStringList &arguments) const; ///< and waits for its success
    bool pressKey(const QString &key) const; ///< as X11 calls it
    QString secondOutput() const; ///< its name; the one on the right
    bool turnSecondOff() const; ///< false where that can't be done

    /// Writes a file below the home, with its folders; answers its absolute path.
    QString write(const QString &name, const QByteArray &content, bool executable = false) const;
    QByteArray read(const QString &name) const;

private:
    void startBus();

    QTemporaryDir m_folder;
    QProcess m_bus;
    QByteArray m_busAddress;
    std::unique_ptr<XServer> m_server; ///< or
    std::unique_ptr<Compositor> m_compositor;
    std::unique_ptr<Desktop> m_desktop;
};
