#pragma once

#include "base/Host.h"
#include "base/Message.h"

#include <QString>
#include <optional>

/// What one file is, as far as its name, its size and its content tell.
struct BiosIdentity {
    enum class Grade {
        good, ///< a known file, or one in the shape of its kind where no list of contents exists
        misnamed, ///< a known file under a name by which its emulator doesn't find it, or under that of another region
        badDump, ///< known to be damaged
        unknown ///< not a known one; may still work
    };
    Grade grade = Grade::unknown;
    QString consoleID; ///< the console it belongs to; empty when nothing tells
    Message title; ///< "SCPH-5501 (America)"; empty when unknown
    QString name; ///< the file name by which emulators find it; empty when they take any
    QString xemuKey; ///< Xbox: the key of [sys.files] in xemu.toml that must hold its path; else empty
    bool operator==(const BiosIdentity &) const = default;
};

/// What a file shows of itself.
struct BiosContent {
    QString name; ///< of the file, without its folder
    qint64 size = 0;
    QByteArray md5; ///< hexadecimal; of a very large file, which no list has, that of its start
    QByteArray start; ///< all of it, unless it is very large
};
BiosIdentity identityOf(const BiosContent &content);

/// Reads the file, all of it only when it is small. Call it in the background.
BiosIdentity identifyBios(const QString &path);

/// What the card says about the file beside the result of the copy, with the remedy where there is one.
Message biosRemark(const BiosIdentity &identity, const QString &fileName, const QString &label);
