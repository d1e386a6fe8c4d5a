#pragma once

#include "platform/linux/XConnection.h"

#include <QImage>

/// What a window shows in a rectangle that lies inside it and inside the screen; null when it has gone, is hidden, or
/// has a depth of colours that nobody uses any more.
QImage pictureOf(XConnection &connection, xcb_window_t window, const QRect &place);
