#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

/// The name of one preference and the type of its value.
template <class T>
struct PreferenceKey {
    QString name;
};

/// A family of preferences, completed by an identifier: `preference::emulatorPath("mgba")`.
template <class T>
struct PreferencePrefix {
    QLatin1String prefix;
    PreferenceKey<T> operator()(const QString &identifier) const { return {prefix + identifier}; }
};

/// Every preference there is.
namespace preference {
using namespace Qt::StringLiterals;

/// Preferences of the earlier identity were taken over
inline const PreferenceKey<bool> migratedFromLegacyIdentifier{u"migratedFromLegacyIdentifier"_s};
/// Chosen location of the Velko folder, absolute
inline const PreferenceKey<QString> velkoFolder{u"velkoFolder"_s};
/// Interface language code
inline const PreferenceKey<QString> appLanguage{u"appLanguage"_s};
/// The first-run onboarding was completed
inline const PreferenceKey<bool> onboardingDone{u"onboardingDone"_s};
/// The set-up reminder is dismissed
inline const PreferenceKey<bool> hideSetupReminder{u"hideSetupReminder"_s};
/// The getting-started card is dismissed
inline const PreferenceKey<bool> hideGettingStarted{u"hideGettingStarted"_s};
/// A getting-started step is done
inline const PreferencePrefix<bool> gettingStarted{"gettingStarted."_L1};
/// Notices already read
inline const PreferenceKey<QStringList> readNotices{u"readNotices"_s};
/// by emulator: tips after adding a game are hidden
inline const PreferencePrefix<bool> hideAddedTips{"hideAddedTips."_L1};
/// by emulator: the controller notice is hidden
inline const PreferencePrefix<bool> hideControllerNotice{"hideControllerNotice."_L1};
/// The address last typed into a report
inline const PreferenceKey<QString> reportEmail{u"reportEmail"_s};
/// Folders that the user asked to scan, absolute
inline const PreferenceKey<QStringList> romFolders{u"romFolders"_s};
/// Initial `fps60` of new per-game settings
inline const PreferenceKey<bool> default60FPS{u"default60FPS"_s};
/// The Velko folder is in use; turns on the portable library copy
inline const PreferenceKey<bool> folderOrganized{u"folderOrganized"_s};
/// Files added later are placed into the Velko folder
inline const PreferenceKey<bool> folderAutoPlace{u"folderAutoPlace"_s};
/// Anonymous statistics are switched off
inline const PreferenceKey<bool> statsOff{u"statsOff"_s};
/// Last day for which statistics were sent
inline const PreferenceKey<QString> statsLastDay{u"statsLastDay"_s};
/// Last day whose per-game totals were sent
inline const PreferenceKey<QString> statsTitlesThrough{u"statsTitlesThrough"_s};
/// Times Big Picture was opened since the last summary
inline const PreferenceKey<int> statsBigPicture{u"statsBigPicture"_s};
/// "minimum", "medium" or "maximum"; anything else is medium
inline const PreferenceKey<QString> defaultQuality{u"defaultQuality"_s};
/// The console catalog shows only consoles with games
inline const PreferenceKey<bool> consolesOnlyMine{u"consolesOnlyMine"_s};
/// The console catalog is grouped by maker
inline const PreferenceKey<bool> consolesGroupByMaker{u"consolesGroupByMaker"_s};
/// by emulator: the copy that the user pointed to, absolute
inline const PreferencePrefix<QString> emulatorPath{"emulatorPath."_L1};
/// by console: the emulator that the user chose
inline const PreferencePrefix<QString> emulator{"emulator."_L1};
/// by emulator: the controller was set up in it
inline const PreferencePrefix<bool> controllerConfigured{"controllerConfigured."_L1};
/// Set up Xbox controllers in emulators by itself; true when absent
inline const PreferenceKey<bool> autoXboxSetup{u"autoXboxSetup"_s};
/// The output on which games are played, "DP-1"; absent: where the user is at the start
inline const PreferenceKey<QString> playDisplay{u"playDisplay"_s};
/// The RPCS3 frame rate was raised for a patch
inline const PreferenceKey<bool> rpcs3VblankRaised{u"rpcs3VblankRaised"_s};
/// The Xbox controller banner is not shown
inline const PreferenceKey<bool> skipXboxBanner{u"skipXboxBanner"_s};
/// The logo intro of Big Picture is skipped
inline const PreferenceKey<bool> skipLogoIntro{u"skipLogoIntro"_s};
/// Tile size in Big Picture
inline const PreferenceKey<int> bpTileSize{u"bpTileSize"_s};
/// Sort order of the library grid
inline const PreferenceKey<QString> gameSort{u"gameSort"_s};
/// The library sidebar's filter
inline const PreferenceKey<QString> librarySidebarFilter{u"librarySidebarFilter"_s};
/// Last tab shown on a game's page
inline const PreferenceKey<QString> gamePageTab{u"gamePageTab"_s};
/// The nxnative checkout
inline const PreferenceKey<QString> nxnativePath{u"nxnativePath"_s};
/// The Switch key file
inline const PreferenceKey<QString> keysPath{u"keysPath"_s};
/// Last update check of nxnative
inline const PreferenceKey<QDateTime> nxnativeLastCheck{u"nxnativeLastCheck"_s};
/// Built apps go to the Applications folder
inline const PreferenceKey<bool> installToApplications{u"installToApplications"_s};
/// The user confirmed owning the games that are built
inline const PreferenceKey<bool> ownCopiesConfirmed{u"ownCopiesConfirmed"_s};
/// Kept by the supporters corner
inline const PreferenceKey<QStringList> supporters{u"supporters"_s};
}
