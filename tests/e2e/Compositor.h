#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A Wayland desktop with two outputs of 1920 × 1080, the second on the right; they stay. X11 programs run on it
/// through XWayland.
class Compositor {
public:
    static bool isOne(const QString &windowManager); ///< "mutter-wayland" or "sway", which brings its own display

    Compositor(const QString &name, const QProcessEnvironment &environment);
    ~Compositor();

    bool isReady() const { return !display().isEmpty(); }
    QByteArray display() const { return m_told.value(QStringLiteral("DISPLAY")).toLatin1(); } ///< of XWayland
    const QProcessEnvironment &told() const { return m_told; } ///< what programs on it need to find it
    qint64 pid() const { return m_process.processId(); }

private:
    void startMutter(const QProcessEnvironment &environment);
    void startSway(QProcessEnvironment environment);
    void readEnvironment();
    QString notes() const { return m_folder.filePath(QStringLiteral("environment")); }

    QTemporaryDir m_folder;
    QProcess m_process;
    QProcessEnvironment m_told;
};
