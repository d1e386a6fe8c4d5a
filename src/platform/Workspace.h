#pragma once

#include "base/Result.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QUrl>

/// How a program came onto the machine; decides its configuration folder, its arguments and how its processes are
/// found.
enum class ApplicationKind { native, appImage, flatpak, bundle };

/// An entry of the system's registry of applications: on Linux a desktop entry, native or exported by Flatpak.
struct Application {
    QString id; ///< desktop id without ".desktop", for Flatpak the application id; a bundle identifier on the Mac
    QString name; ///< untranslated
    ApplicationKind kind = ApplicationKind::native;
    QString path; ///< the program with its folder, for Flatpak the exported desktop entry
    QStringList command; ///< argument vector without field codes; a game's own arguments come after it
    bool operator==(const Application &) const = default;
};

/// What to start and how. No shell is involved.
struct StartRequest {
    QStringList command; ///< argument vector; the first is an absolute path or a name searched on PATH
    QMap<QString, QString> environment; ///< added to, or replacing, the variables of Velko's own environment
    QString workingFolder;
    /// Gets what the program prints, the last 256 KiB at least and 512 KiB at most; an earlier content goes. Complete a
    /// moment after the program has ended. Empty: nowhere.
    QString logFile;
};

/// How a program ended.
struct ProgramEnd {
    int exitStatus = 0; ///< 0 to 255; meaningless when a signal ended it
    int signal = 0; ///< the signal that ended it, else 0
    bool operator==(const ProgramEnd &) const = default;
};

/// Finds and starts other programs. Main thread only, but for `applications`.
class Workspace : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Every application that the system has on record, in the order of precedence; an id that a folder with higher
    /// precedence has hides the same id in the later ones, so a native and a Flatpak copy with different ids both show.
    /// Reads many small files: call it in the background. Safe from any thread.
    virtual QList<Application> applications() const = 0;

    /// Starts a new instance in a session and process group of its own, which goes on when Velko ends. Answers the
    /// process identifier as soon as the program runs, or why the system refused.
    virtual Result<qint64> start(const StartRequest &request) = 0;

    virtual bool openAddress(const QUrl &address) = 0; ///< a web address or a folder, in the user's own program

signals:
    void ended(qint64 pid, ProgramEnd end); ///< once for each program that `start` started
};
