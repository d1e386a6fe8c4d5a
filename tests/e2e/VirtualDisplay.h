#pragma once

#include "Desktop.h"

#include <QProcess>
#include <QTemporaryDir>

/// A computer of its own for one test: a display with a window manager, a message bus, a home and a runtime folder.
/// Everything that runs on it ends with it, also what a program under test has left behind.
class VirtualDisplay {
public:
    enum class Screens { one, twoOutputs };

    /// Two outputs, DUMMY0 and DUMMY1 beside each other, need an X server that only root may configure.
    explicit VirtualDisplay(Screens screens = Screens::one, const QString &windowManager = QStringLiteral("openbox"));
    ~VirtualDisplay();

    bool isReady() const { return m_desktop && m_desktop->hasWindowManager(); }
    Desktop &desktop() { return *m_desktop; }
    QString home() const { return m_folder.path() + QStringLiteral("/home"); }
    QByteArray name() const { return m_display; } ///< ":5"
    QProcessEnvironment environment() const; ///< for programs that run on it
    QList<qint64> programs() const; ///< what was started on it and still runs; its own services are left out

    bool setOutputs(const QStringList &arguments) const; ///< as for xrandr

    /// Writes a file below the home, with its folders; answers its absolute path.
    QString write(const QString &name, const QByteArray &content, bool executable = false) const;
    QByteArray read(const QString &name) const;

private:
    QByteArray startServer(Screens screens);
    bool addOutputs();
    QByteArray start(QProcess &service, const QString &program, const QStringList &arguments);

    QTemporaryDir m_folder;
    QProcess m_server, m_bus, m_windowManager;
    QByteArray m_display, m_busAddress;
    std::unique_ptr<Desktop> m_desktop;
};
