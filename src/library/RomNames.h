#pragma once

#include <QString>
#include <optional>

/// The console that a folder's name speaks of, as in "Sony - PlayStation 2".
std::optional<QString> hintForFolder(const QString &name);

/// A file name without its extension as a title: brackets go with what they hold, runs of blanks become one. May be
/// empty.
QString cleanTitle(const QString &name);

/// Whether a folder is meant for games that are themselves programs: "Native ports", "Native games" or "Native".
bool isForNativeGames(const QString &folderName);
