#pragma once

#include "base/Message.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <optional>

/// What came of an edit.
struct ConfigFileEdit {
    enum class Outcome {
        unchanged, ///< nothing to change: the file was not touched
        written,
        missing, ///< there is no such file, and none was created
        failed, ///< the file is as it was
    } outcome = Outcome::unchanged;
    Message why; ///< of a failure, with the remedy
};

/// The new text, or nothing when the text has a form that cannot be edited.
using TextEdit = std::function<std::optional<QByteArray>(const QByteArray &text)>;

enum class BackUp { no, once };

/// Edits another program's file: read, edit, compare, and only when something changed write a temporary file beside it
/// and rename it into its place. Permissions, owner and a symbolic link to it stay. Left alone are files over 16 MiB,
/// files with NUL bytes or not in UTF-8, whatever is no ordinary file or not writable, and a file that changes
/// meanwhile. `BackUp::once`: the text as it is goes into a file of the same name with ".velkoemu-backup" behind it,
/// unless there is one already. Blocks.
ConfigFileEdit editConfigFile(const QString &path, const TextEdit &edit, BackUp backUp = BackUp::no);
