#pragma once

#include "base/Result.h"

#include <QList>
#include <QObject>
#include <QString>

/// The buttons of a controller by their places on an Xbox one. Triggers count as buttons, pressed beyond half.
enum class PadButton {
    dpadLeft,
    dpadRight,
    dpadUp,
    dpadDown,
    a,
    b,
    x,
    y,
    leftShoulder,
    rightShoulder,
    leftTrigger,
    rightTrigger,
    view,
    menu,
    share,
    leftStick,
    rightStick,
};

struct Pad {
    int id = 0; ///< not used again while Velko runs
    QString name; ///< as its maker calls it; empty when it does not say
    bool standard = false; ///< has the buttons above; another one is only named
    bool operator==(const Pad &) const = default;
};

/// Connected controllers, also while another program is in front. Main thread only.
class Gamepads : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    /// Looks for controllers from now on; what is there already is announced as connected. Once is enough.
    virtual void start() = 0;
    /// A controller without hardware, pressed by the lines that others write to this named pipe, which is made where it
    /// is missing: "press A" (a press and a release), "hold View", "release View", "unplug", "plug". One only.
    virtual Result<void> attachVirtual(const QString &pipe) = 0;
    virtual QList<Pad> pads() const = 0; ///< the one connected first comes first
    virtual bool isHeld(int pad, PadButton button) const = 0;

signals:
    void connected(const Pad &pad);
    void disconnected(int pad); ///< buttons that were held are released before
    void pressed(int pad, PadButton button);
    void released(int pad, PadButton button);
};
