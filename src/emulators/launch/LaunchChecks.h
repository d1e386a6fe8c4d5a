#pragma once

#include "base/Message.h"
#include "catalog/Console.h"
#include "emulators/finding/InstalledEmulator.h"
#include "platform/Places.h"

#include <optional>

/// What stands in the way of a launch, as the sentence for the user; nothing when all is well. They look at files: call
/// them in the background.

/// What shadPS4 asks of a Mac.
struct MacFacts {
    int systemVersion = 0; ///< 26 for macOS 26
    bool appleSilicon = false;
    bool rosetta = false; ///< installed
};

std::optional<Message> nativeGameRefusal(const QString &path, Host host);

/// Why this copy cannot start, or is not set up to play.
std::optional<Message> emulatorRefusal(const InstalledEmulator &emulator, const QString &gamePath,
                                       const Places &places);

std::optional<Message> shadPS4MacRefusal(const MacFacts &facts);

/// `retroArch`: a copy that has no core for the console, when RetroArch is installed and the console may use it.
Message noEmulatorFor(const Console &console, const std::optional<InstalledEmulator> &retroArch, const Places &places);

/// The folder of a PlayStation 4 game, which holds "sce_sys": the path itself or a folder above it.
std::optional<QString> ps4GameFolder(const QString &gamePath);
