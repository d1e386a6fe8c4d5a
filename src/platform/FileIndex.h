#pragma once

#include <QString>
#include <QStringList>

/// Finds files by name: the system's index first, then a bounded walk of the given folders. Blocks for up to some
/// seconds: call it in the background. Safe from any thread.
class FileIndex {
public:
    virtual ~FileIndex() = default;

    /// Existing files and folders whose name is exactly `name` (case-sensitive), each once. Trash and cache folders are
    /// left out. `folders` are walked when the index knows nothing.
    virtual QStringList named(const QString &name, const QStringList &folders) const = 0;

    /// Existing files whose name begins with `prefix` and ends with `suffix`, both without regard to case. Index only.
    virtual QStringList beginningWith(const QString &prefix, const QString &suffix) const = 0;
};
