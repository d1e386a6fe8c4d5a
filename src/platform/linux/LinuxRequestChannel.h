#pragma once

#include "platform/Places.h"
#include "platform/RequestChannel.h"

/// A lock and a socket in "velko" below the runtime folder, open to this user only.
std::unique_ptr<RequestChannel> makeRequestChannel(const Places &places);
