#pragma once

#include "base/Result.h"

#include <QString>

/// Where files go that the user may want back. Safe from any thread; may copy, when the file lies on another disk.
class Trash {
public:
    virtual ~Trash() = default;
    /// Answers where the file lies now. Fails when it is gone or its place allows no change; then nothing has changed.
    virtual Result<QString> move(const QString &path) = 0;
};
