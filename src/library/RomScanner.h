#pragma once

#include "base/Host.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

struct Console;

/// A game that a scan found.
struct Hit {
    QString url; ///< absolute path of the file or game folder
    QString title; ///< empty when the name is nothing but brackets
    QString consoleID;
    QString root; ///< the scanned folder; empty for a file that was given by itself
    bool operator==(const Hit &) const = default;
};

/// What a scan saw.
struct ScanFindings {
    QList<Hit> hits; ///< in the order found
    int unsettled = 0; ///< files with a game's extension whose console is not clear
    int unnamable = 0; ///< games whose path is not valid text, which the library can't keep
    QString firstUnnamable; ///< one of them, as far as it can be shown
    QStringList cutShort; ///< scanned folders with more entries than are looked at
    QStringList unopened; ///< what was to be scanned and is not there or can't be read
    bool cancelled = false;
    bool hasTrouble() const { return unsettled > 0 || unnamable > 0 || !cutShort.isEmpty() || !unopened.isEmpty(); }
    bool operator==(const ScanFindings &) const = default;
};

/// Recognises the games in folders. One scanner per scan; used in the background.
class RomScanner {
public:
    static constexpr int entriesPerFolder = 20000; ///< looked at; the rest of a larger folder is left out
    static constexpr int levels = 6; ///< a file inside five sub-folders is the last one seen

    explicit RomScanner(Host host, int mostEntries = entriesPerFolder);

    /// Called now and then with the number of entries looked at so far; answers whether to go on.
    using GoOn = std::function<bool(int examined)>;
    /// Folders, and single files, whose console is told by the folders above them.
    ScanFindings scan(const QStringList &paths, const GoOn &goOn);

    /// By the extension; where several consoles share it, by the names of the folders from the file's up to the root.
    std::optional<QString> consoleForFile(const QString &file, const QString &extension, const QString &root);

private:
    friend class FolderWalk;

    const QString &hint(QStringView folderName);

    Host m_host;
    int m_mostEntries;
    QHash<QString, QStringList> m_consoles; ///< by extension, in the catalog's order
    QHash<QString, QString> m_hints; ///< by folder name, as far as asked; empty: none
};
