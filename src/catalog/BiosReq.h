#pragma once

#include <QString>

/// Where a console's system files belong.
struct BiosDest {
    enum class Kind { folder, ps3Firmware };
    Kind kind = Kind::folder;
    QString folder; ///< relative to the home folder; empty for `ps3Firmware`, which is installed through RPCS3
    bool operator==(const BiosDest &) const = default;
};

/// The system files that a console's emulator needs.
struct BiosReq {
    QString label; ///< what the files are
    QString hint; ///< the file names to look for
    bool required = true; ///< false: recommended or optional
    BiosDest dest;
    bool operator==(const BiosReq &) const = default;
};
