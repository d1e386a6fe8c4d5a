#pragma once

#include "platform/ScreenCapture.h"

#include <QHash>

/// Pictures of windows and of a screen that a test painted.
struct FakeScreenCapture final : ScreenCapture {
    QHash<quint64, QImage> windows;
    QImage picture; ///< of the whole space of displays, from 0,0

    QImage window(quint64 id) override { return windows.value(id); }
    QImage screen(const QRect &place) override
    {
        const QRect shown = place & picture.rect();
        return shown.isEmpty() ? QImage() : picture.copy(shown);
    }
};
