#pragma once

#include "platform/Keys.h"

#include <QList>
#include <functional>

/// A keyboard that only remembers.
struct FakeKeys final : Keys {
    QList<KeyStroke> pressed;
    bool reachable = true;
    std::function<void(const KeyStroke &)> onPress; ///< what the program in front does with it

    bool press(const KeyStroke &stroke) override
    {
        if (!reachable || stroke.key == Qt::Key_unknown) return false;
        pressed += stroke;
        if (onPress) onPress(stroke);
        return true;
    }
};
