#pragma once

#include "platform/HotKey.h"

#include <optional>

/// A global key that a test presses.
class FakeHotKey final : public HotKey {
public:
    std::optional<KeyStroke> grabbed;
    std::optional<Message> refusal; ///< what `grab` answers instead

    Result<void> grab(const KeyStroke &stroke) override
    {
        if (refusal) return *refusal;
        grabbed = stroke;
        return {};
    }
    void press()
    {
        if (grabbed) emit pressed();
    }
};
