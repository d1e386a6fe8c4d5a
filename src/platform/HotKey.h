#pragma once

#include "base/Result.h"
#include "platform/Keys.h"

#include <QObject>

/// One key that reaches Velko whatever window has the keyboard. Main thread only.
class HotKey : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    /// Once per process; the same stroke again does nothing. Fails when another program has taken the key.
    virtual Result<void> grab(const KeyStroke &stroke) = 0;

signals:
    void pressed();
};
