#include "library/RomScanner.h"

#include "catalog/Console.h"
#include "library/MovedFile.h"
#include "library/RomNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

RomScanner::RomScanner(Host host, int mostEntries) : m_host(host), m_mostEntries(mostEntries)
{
    for (const Console &console : consoles(host)) {
        for (const QString &extension : console.extensions)
            m_consoles[extension] += console.id;
    }
}

const QString &RomScanner::hint(QStringView folderName)
{
    const QString name = folderName.toString();
    const auto known = m_hints.constFind(name);
    if (known != m_hints.constEnd()) return *known;
    return *m_hints.insert(name, hintForFolder(name).value_or(QString()));
}

std::optional<QString> RomScanner::consoleForFile(const QString &file, const QString &extension, const QString &root)
{
    const QStringList candidates = m_consoles.value(extension);
    if (candidates.isEmpty()) return {};
    if (candidates.size() == 1) return candidates.first();

    QStringView folder = QStringView(file).left(file.lastIndexOf(u'/'));
    for (int climbed = 0; climbed < 6 && !folder.isEmpty(); ++climbed) {
        const qsizetype slash = folder.lastIndexOf(u'/');
        const QString &console = hint(folder.mid(slash + 1));
        if (!console.isEmpty() && candidates.contains(console)) return console;
        if (folder == root) break;
        folder = folder.left(slash);
    }
    return {};
}

/// The walk through one scanned folder. Names stay bytes until a game is found: they need not be valid text.
class FolderWalk {
public:
    FolderWalk(RomScanner &scanner, const QString &root, ScanFindings &findings, const RomScanner::GoOn &goOn,
               int examinedBefore)
        : m_scanner(scanner), m_root(root), m_findings(findings), m_goOn(goOn), m_examinedBefore(examinedBefore)
    { }

    int run(); ///< answers how many entries it looked at

private:
    struct Entry {
        QByteArray name;
        bool folder = false;
        bool file = false;
    };
    using Entries = std::vector<Entry>;

    bool list(const QByteArray &folder, Entries &entries) const;
    void walk(const QByteArray &folder, int level, int nativeLevels);
    bool addGameFolder(const QByteArray &folder, const Entries &entries);
    bool look();
    int levelsForNativeGames(const QByteArray &folder, int ofParent) const;
    bool lookAtFile(const QByteArray &folder, const QByteArray &name);
    void lookAtGivenFile(const QByteArray &path);
    void addProgram(const QByteArray &folder, const QByteArray &name);
    void add(const QByteArray &path, const QString &name, const QString &console);

    RomScanner &m_scanner;
    QString m_root;
    ScanFindings &m_findings;
    const RomScanner::GoOn &m_goOn;
    int m_examinedBefore;
    int m_examined = 0;
    bool m_stopped = false;
};

static QByteArray joined(const QByteArray &folder, const QByteArray &name)
{
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

static bool exists(const QByteArray &path)
{
    struct stat ignored;
    return ::stat(path.constData(), &ignored) == 0;
}

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

/// Visible entries in the order of their names; no more of them than the walk may still look at.
bool FolderWalk::list(const QByteArray &folder, Entries &entries) const
{
    const Folder stream(::opendir(folder.constData()));
    if (!stream) return false;
    const size_t most = size_t(m_scanner.m_mostEntries - m_examined) + 1;
    while (entries.size() < most) {
        const dirent *next = ::readdir(stream.get());
        if (!next) break;
        if (next->d_name[0] == '.') continue;
        Entry entry{next->d_name, next->d_type == DT_DIR, next->d_type == DT_REG};
        // Some file systems do not tell the type along with the name.
        if (struct stat kind;
            next->d_type == DT_UNKNOWN && ::lstat(joined(folder, entry.name).constData(), &kind) == 0) {
            entry.folder = S_ISDIR(kind.st_mode);
            entry.file = S_ISREG(kind.st_mode);
        }
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) { return a.name < b.name; });
    return true;
}

/// An AppImage, or an executable file that is a program by its first bytes.
static bool isProgram(const QByteArray &folder, const QByteArray &name)
{
    const QByteArray extension = name.contains('.') ? name.mid(name.lastIndexOf('.') + 1).toLower() : QByteArray();
    if (extension == "appimage") return true;
    const QByteArray path = joined(folder, name);
    if (!(extension.isEmpty() || extension == "x86_64" || extension == "aarch64")) return false;
    if (::access(path.constData(), X_OK) != 0) return false;
    QFile file(QFile::decodeName(path));
    return file.open(QFile::ReadOnly)
        && file.read(4)
        == QByteArray("\x7F"
                      "ELF");
}

int FolderWalk::run()
{
    const QByteArray root = QFile::encodeName(m_root);
    if (Folder(::opendir(root.constData())))
        walk(root, 1, levelsForNativeGames(root, 0));
    else if (QFileInfo(m_root).isFile() && look())
        lookAtGivenFile(root);
    else
        m_findings.unopened += m_root;
    return m_examined;
}

/// A file that the user chose is taken for a game more readily than one that lies somewhere.
void FolderWalk::lookAtGivenFile(const QByteArray &path)
{
    m_root.clear(); // nothing ends the climb through the folders above
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray folder = path.left(slash), name = path.mid(slash + 1);
    const MovedFile parts = movedFile(QString::fromUtf8(path));
    if (!parts.rest.isEmpty())
        add(path, parts.name, u"ps3"_s);
    else if (m_scanner.m_host == Host::linux && isProgram(folder, name))
        addProgram(folder, name);
    else if (!lookAtFile(folder, name))
        ++m_findings.unsettled;
}

/// Counts one entry; answers whether the walk goes on.
bool FolderWalk::look()
{
    if (m_examined == m_scanner.m_mostEntries) {
        m_findings.cutShort += m_root;
        m_stopped = true;
    } else if (++m_examined % 256 == 0 && !m_goOn(m_examinedBefore + m_examined)) {
        m_findings.cancelled = true;
        m_stopped = true;
    }
    return !m_stopped;
}

/// Work folders of the Switch build, and the Mac's folders that count as one file.
static bool isClosed(const QByteArray &name)
{
    if (name.endsWith("_build") || name.endsWith("_survey")) return true;
    static const QList<QByteArray> packages{".app",    ".appex", ".bundle", ".framework", ".kext", ".photoslibrary",
                                            ".plugin", ".rtfd",  ".saver",  ".xcodeproj", ".xpc"};
    const QByteArray lower = name.toLower();
    return std::any_of(packages.begin(), packages.end(), [&](const QByteArray &end) { return lower.endsWith(end); });
}

/// In how many levels from the folder on programs are games: in a folder for native games and its sub-folders. Anywhere
/// else a program may be anything, an emulator above all.
int FolderWalk::levelsForNativeGames(const QByteArray &folder, int ofParent) const
{
    if (m_scanner.m_host != Host::linux) return 0;
    const bool meant = isForNativeGames(QString::fromUtf8(folder.mid(folder.lastIndexOf('/') + 1)));
    return meant ? 2 : std::max(0, ofParent - 1);
}

void FolderWalk::walk(const QByteArray &folder, int level, int nativeLevels)
{
    Entries entries;
    if (!list(folder, entries) || addGameFolder(folder, entries)) return;
    for (const Entry &entry : entries) {
        if (!look()) return;
        if (entry.file && nativeLevels > 0 && isProgram(folder, entry.name))
            addProgram(folder, entry.name);
        else if (entry.file)
            lookAtFile(folder, entry.name);
        else if (entry.folder && level < RomScanner::levels && !isClosed(entry.name))
            walk(joined(folder, entry.name), level + 1, levelsForNativeGames(entry.name, nativeLevels));
        if (m_stopped) return;
    }
}

/// A game that is a folder: a folder inside it gives it away, two paths below it make sure.
struct GameFolder {
    QByteArray mark;
    QByteArray needed;
    QByteArray alsoNeeded;
    QByteArray url; ///< what is started, below the folder; empty: the folder itself
    QString console;
};

bool FolderWalk::addGameFolder(const QByteArray &folder, const Entries &entries)
{
    static const QList<GameFolder> kinds{
        {"PS3_GAME", "PS3_GAME/PARAM.SFO", "PS3_GAME/USRDIR/EBOOT.BIN", "PS3_GAME/USRDIR/EBOOT.BIN", u"ps3"_s},
        {"sce_sys", "sce_sys/param.sfo", "eboot.bin", {}, u"ps4"_s},
        {"base", "base/exefs", "base/romfs", {}, u"switch2"_s}};
    for (const GameFolder &kind : kinds) {
        const bool marked = std::any_of(entries.begin(), entries.end(),
                                        [&](const Entry &entry) { return entry.folder && entry.name == kind.mark; });
        if (!marked || !exists(joined(folder, kind.needed)) || !exists(joined(folder, kind.alsoNeeded))) continue;
        add(kind.url.isEmpty() ? folder : joined(folder, kind.url), QFileInfo(QString::fromUtf8(folder)).fileName(),
            kind.console);
        return true;
    }
    return false;
}

/// A disc image that a cue sheet beside it stands for: of the same name, or one of its tracks.
static bool isInCueSheet(const QByteArray &folder, QByteArray stem)
{
    const auto sheet = [&] { return exists(joined(folder, stem + ".cue")) || exists(joined(folder, stem + ".CUE")); };
    if (sheet()) return true;
    const qsizetype track = stem.lastIndexOf(" (Track ");
    if (track <= 0 || !stem.endsWith(')')) return false;
    stem.truncate(track);
    return sheet();
}

/// Files that share an extension with games and never are one.
static bool isNoGame(const QByteArray &stem, const QString &extension)
{
    if (extension == "appimage"_L1) return true; // outside a folder for native games
    static const QList<QByteArray> texts{"readme",  "changelog", "changes", "license", "licence",  "contributing",
                                         "history", "install",   "todo",    "authors", "security", "code_of_conduct"};
    if (extension == "md"_L1) return texts.contains(stem.toLower());
    return extension == "gz"_L1 && stem.toLower().endsWith(".tar");
}

/// Answers whether the file looks like a game.
bool FolderWalk::lookAtFile(const QByteArray &folder, const QByteArray &name)
{
    const qsizetype dot = name.lastIndexOf('.');
    if (dot < 0) return false;
    const QString extension = QString::fromUtf8(name.mid(dot + 1)).toLower();
    if (!m_scanner.m_consoles.contains(extension)) return false;
    const QByteArray stem = name.left(dot);
    if (isNoGame(stem, extension) || (extension == "bin"_L1 && isInCueSheet(folder, stem))) return false;
    const QByteArray path = joined(folder, name);
    const auto console = m_scanner.consoleForFile(QString::fromUtf8(path), extension, m_root);
    if (console)
        add(path, QString::fromUtf8(stem), *console);
    else
        ++m_findings.unsettled;
    return true;
}

void FolderWalk::addProgram(const QByteArray &folder, const QByteArray &name)
{
    add(joined(folder, name), QFileInfo(QString::fromUtf8(name)).completeBaseName(), u"native"_s);
}

void FolderWalk::add(const QByteArray &path, const QString &name, const QString &console)
{
    const QString url = QString::fromUtf8(path);
    if (url.contains(QChar::ReplacementCharacter) && url.toUtf8() != path) {
        if (m_findings.unnamable++ == 0) m_findings.firstUnnamable = url;
        return;
    }
    m_findings.hits += {url, cleanTitle(name), console, m_root};
}

ScanFindings RomScanner::scan(const QStringList &paths, const GoOn &goOn)
{
    ScanFindings findings;
    int examined = 0;
    for (const QString &path : paths) {
        if (findings.cancelled) break;
        examined += FolderWalk(*this, QDir::cleanPath(path), findings, goOn, examined).run();
    }
    return findings;
}
