#pragma once

#include <QList>
#include <QObject>
#include <QRect>
#include <QString>
#include <optional>

/// One connected display; X11's own headers have taken that name. Coordinates of displays and windows are pixels of one
/// shared space.
struct Monitor {
    QString name; ///< of the output, "DP-1": what the setting for the display of play names
    QRect geometry;
    bool primary = false;
    bool operator==(const Monitor &) const = default;
};

/// What a window is, going by the first of its types. A window without a type is a normal one.
enum class WindowKind { normal, dialog, other };

/// A window of another program, as the window manager knows it.
struct AppWindow {
    quint64 id = 0;
    qint64 pid = 0; ///< of the process that drew it, as this machine numbers it, also for a sandboxed program
    QString title;
    QRect geometry; ///< its content, without the frame
    WindowKind kind = WindowKind::normal;
    quint64 transientFor = 0; ///< the window that it belongs to; 0: none
    bool modal = false;
    bool fullScreen = false;
    bool operator==(const AppWindow &) const = default;
};

/// Other programs' windows and the displays. Commands are requests: the window manager may be late or refuse, so
/// callers look again. A window that is gone takes no command, silently. Main thread only; no call waits for another
/// program.
class Windows : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    virtual bool isAvailable() const = 0; ///< false without a display that can be driven from outside
    virtual QList<Monitor> displays() const = 0; ///< the primary one first
    virtual QList<AppWindow> windowsOf(const QList<qint64> &pids) const = 0; ///< of any of them, the oldest first
    virtual std::optional<AppWindow> activeWindow() const = 0; ///< the one with the keyboard, whoever's it is
    virtual bool isComposed() const = 0; ///< windows are blended: a transparent one shows what lies below it

    /// Whether a window can be in front of one that is full screen. Where windows are tiled, the one pushes the other out
    /// of full screen, and only what the window manager does not know is in front.
    virtual bool haveLayers() const = 0;

    /// Takes it out of full screen and of the maximised state, and moves it there. Some window managers act late.
    virtual void move(quint64 window, const QRect &place) = 0;
    /// On the display at this place in `displays`, where the window manager lets it be chosen; else where it is.
    virtual void setFullScreen(quint64 window, bool fullScreen, int display) = 0;
    virtual void activate(quint64 window) = 0; ///< in front of the others, with the keyboard
    virtual void requestClose(quint64 window) = 0; ///< as its close button does; never of a stopped program

signals:
    void activeChanged(); ///< another window, or none, has the keyboard
    void displaysChanged(); ///< one came, went or changed
};
