#pragma once

#include "platform/Windows.h"
#include "platform/linux/XConnection.h"

/// A display and its number in the server's own order, by which window managers know it.
struct XDisplay {
    Monitor display;
    int number = 0;
    bool operator==(const XDisplay &) const = default;
};

/// The monitors of the server, the primary one first; the whole screen when none is known. One round trip, and one for
/// each name that is new.
QList<XDisplay> displaysOf(XConnection &connection);

/// From now on the events of the connection tell of changes.
void watchDisplays(XConnection &connection);
bool tellsOfDisplays(const XConnection &connection, const xcb_generic_event_t &event);
