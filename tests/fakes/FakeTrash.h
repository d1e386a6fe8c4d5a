#pragma once

#include "platform/Trash.h"

#include <QFile>
#include <QStringList>

/// What is moved here is gone from its place; nothing can be moved when it `refuses`.
struct FakeTrash final : Trash {
    QStringList moved;
    bool refuses = false;

    Result<QString> move(const QString &path) override
    {
        if (refuses || !QFile::remove(path)) return Message{QStringLiteral("refused"), {}};
        moved += path;
        return path;
    }
};
