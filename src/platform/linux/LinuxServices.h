#pragma once

#include "platform/Clock.h"
#include "platform/Places.h"
#include "platform/RequestChannel.h"
#include "platform/Tasks.h"

#include <memory>

/// What Linux does for us. Each function makes a new service; main.cpp makes one of each and hands them on.
std::unique_ptr<Clock> makeClock();

/// At least four pieces of work run at the same time. Destroying it waits for the work that runs, drops what has not
/// begun, and lets no result arrive any more.
std::unique_ptr<Tasks> makeTasks();

/// A lock and a socket in "velko" below the runtime folder, open to this user only.
std::unique_ptr<RequestChannel> makeRequestChannel(const Places &places);
