#pragma once

#include <Qt>

/// One key with its modifiers. Modifiers are released again.
struct KeyStroke {
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool operator==(const KeyStroke &) const = default;
};

/// Types for the user. The stroke goes to the window that has the keyboard: the caller sees to it that it is the right
/// one. Main thread only.
class Keys {
public:
    virtual ~Keys() = default;
    virtual bool press(const KeyStroke &stroke) = 0; ///< false when the keyboard has no such key, or cannot be reached
};
