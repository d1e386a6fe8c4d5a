#pragma once

#include <QString>
#include <optional>

/// How the console itself names a game; patches are listed under it.
struct GameIdentity {
    QString serial; ///< TITLE_ID: "BLUS30443", "CUSA00207"
    QString version; ///< APP_VER: "01.04"; empty when unknown
    bool operator==(const GameIdentity &) const = default;
};

/// From the PARAM.SFO of the game's folder or disc image; an update that is installed in RPCS3 (its folder of games,
/// "dev_hdd0/game") names the version that will run. Reads files, as does the next.
std::optional<GameIdentity> ps3Identity(const QString &gamePath, const QString &installedGames);

/// From sce_sys/param.sfo; the update's version holds where its folder lies beside the game's, named like it with
/// "-UPDATE" or "-patch" behind.
std::optional<GameIdentity> ps4Identity(const QString &gamePath);
