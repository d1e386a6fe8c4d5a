#pragma once

#include "base/Message.h"
#include "emulators/finding/EmulatorFolders.h"
#include "emulators/settings/ChangeNotes.h"
#include "platform/Places.h"

#include <optional>

/// One game whose 60 FPS patch is meant.
struct FramePatchGame {
    QString emulatorID; ///< "rpcs3" or "shadps4"; others have no patches
    QString path;
    EmulatorFolders folders; ///< of the copy that plays it
    bool listCancelled = false; ///< the user has cancelled the download of the list
};

bool listIsThere(const FramePatchGame &game, const Places &places); ///< of patches for this game's console; quick

/// Said when there is no list at all.
Message patchListMissing(const FramePatchGame &game);

/// Whether the lists on this machine have a patch for the game. Reads files, as does the next.
struct FramePatchSearch {
    QString name; ///< of the patch; empty: none
    Message why; ///< there is none
    bool operator==(const FramePatchSearch &) const = default;
};
FramePatchSearch findFramePatch(const FramePatchGame &game, const Places &places);

/// What a launch did about the game's patch; it goes on in any case.
struct FramePatchOutcome {
    std::optional<int> vblankRate; ///< RPCS3: what the patch asks for
    std::optional<Message> shortcoming; ///< why it is not on as wanted
};

/// Switches the game's 60 FPS patch on, or off where it is on, in the emulator's own files, and notes it; shadPS4's are
/// files of ours.
FramePatchOutcome applyFramePatch(const FramePatchGame &game, bool on, const Places &places, ChangeNotes &notes);
