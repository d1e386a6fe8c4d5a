#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

/// What a desktop entry says about a program, in the entry's own terms.
struct DesktopEntry {
    QString name; ///< untranslated
    QStringList command; ///< argument vector without field codes; empty: nothing to start
    QString tryExec; ///< program without which the entry does not count; empty: none
    QString flatpakID; ///< the Flatpak application behind an exported entry; empty: none
    bool isApplication = false; ///< a link or a folder is no application
    bool hidden = false; ///< the user deleted it: hides entries of the same id in later folders
    bool operator==(const DesktopEntry &) const = default;
};

/// Nothing when the text has no desktop entry group or is no text at all. Keys of other groups and languages are
/// ignored; a key that stands twice counts as it stands last.
std::optional<DesktopEntry> parseDesktopEntry(const QByteArray &text);

/// The argument vector that an `Exec` value stands for, with field codes dropped and "%%" as "%". Empty when a quote is
/// not closed. The value has its backslash sequences resolved already; no shell rules apply.
QStringList splitExec(const QString &value);

/// Where the program stands in a command: after "env" and the variables that it sets. -1 in an empty command.
qsizetype programIndex(const QStringList &command);

/// The part of a Flatpak's exported command that starts it: "flatpak run", its options and the application's id. The
/// options that hand over files are dropped: they would hide the folders that a game needs.
QStringList flatpakCommand(const DesktopEntry &entry);
