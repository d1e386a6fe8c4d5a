#pragma once

#include "base/Message.h"

/// What to tell the user when the system refused to start a program, by the error number that it gave.
Message startFailure(int error, const QString &program);
