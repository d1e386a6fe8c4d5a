#include "ui/models/ConsoleFacts.h"

#include "app/Translator.h"
#include "catalog/EmulatorDef.h"
#include "emulators/controllers/ControllerClass.h"
#include "emulators/controllers/ControllerGuide.h"
#include "emulators/finding/CoreFinder.h"
#include "emulators/finding/InstalledEmulators.h"
#include "library/LibraryStore.h"
#include "ui/CopyText.h"
#include "ui/models/EngineStatus.h"
#include "ui/models/JoinedTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

EmulatorCopiesModel::EmulatorCopiesModel(const InstalledEmulators &emulators, const Translator &translator,
                                         const Places &places, QObject *parent)
    : QAbstractListModel(parent), m_emulators(emulators), m_translator(translator), m_places(places)
{
    connect(&emulators, &InstalledEmulators::changed, this, &EmulatorCopiesModel::refill);
}

int EmulatorCopiesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant EmulatorCopiesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= count()) return {};
    const Row &row = m_rows[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case Name:
        return row.name;
    case EmulatorID:
        return row.emulatorID;
    case Detail:
        return m_translator.translate(row.detail);
    case Path:
        return fromHome(row.path, m_places);
    case Spoken:
        return joined({row.name, m_translator.translate(row.detail), row.path});
    case Installed:
        return !row.path.isEmpty();
    case InUse:
        return row.inUse;
    case Website:
        return row.website;
    }
    return {};
}

QHash<int, QByteArray> EmulatorCopiesModel::roleNames() const
{
    return {{Name, "title"},    {EmulatorID, "emulatorID"}, {Detail, "detail"}, {Path, "path"},
            {Spoken, "spoken"}, {Installed, "installed"},   {InUse, "inUse"},   {Website, "website"}};
}

void EmulatorCopiesModel::setConsole(const Console *console)
{
    m_console = console;
    refill();
}

void EmulatorCopiesModel::refill()
{
    QList<Row> rows;
    if (m_console && m_emulators.known()) {
        const std::optional<InstalledEmulator> used = m_emulators.forConsole(m_console->id);
        for (const QString &id : m_console->emulators) {
            const EmulatorDef *def = emulatorWithID(id, m_places.host);
            if (!def) continue;
            const QList<InstalledEmulator> copies = m_emulators.copies(id);
            for (const InstalledEmulator &copy : copies)
                rows += {id, def->name, copyText(copy.kind), copy.path, def->website, used && *used == copy};
            if (copies.isEmpty()) rows += {id, def->name, u"Not installed"_s, {}, def->website};
        }
    }
    const bool otherCount = rows.size() != m_rows.size();
    beginResetModel();
    m_rows = rows;
    endResetModel();
    if (otherCount) emit countChanged();
}

ConsoleFacts::ConsoleFacts(const LibraryStore &library, const InstalledEmulators &emulators,
                           const Translator &translator, const Places &places, QObject *parent)
    : QObject(parent), m_library(library), m_emulators(emulators), m_translator(translator), m_host(places.host),
      m_copies(emulators, translator, places)
{
    connect(&emulators, &InstalledEmulators::changed, this, &ConsoleFacts::statusChanged);
    connect(&library, &LibraryStore::gamesChanged, this, &ConsoleFacts::gamesChanged);
}

void ConsoleFacts::setConsoleID(const QString &id)
{
    if (id == consoleID()) return;
    m_console = consoleWithID(id, m_host);
    m_copies.setConsole(m_console);
    emit changed();
    emit statusChanged();
    emit gamesChanged();
}

QString ConsoleFacts::name() const
{
    return m_console ? m_translator.translate(m_console->name) : QString();
}

QString ConsoleFacts::maker() const
{
    return m_console ? m_translator.translate(displayName(m_console->maker)) : QString();
}

QString ConsoleFacts::year() const
{
    // The year of the native ports only sorts them last.
    return m_console && m_console->engine != Engine::nativeApp ? QString::number(m_console->year) : QString();
}

QString ConsoleFacts::gamesTitle() const
{
    return m_translator.fill(u"Your %@ games"_s, {name()});
}

QString ConsoleFacts::gamesText() const
{
    const auto ours = [this](const GameEntry &game) { return game.consoleID == consoleID(); };
    const auto count = std::count_if(m_library.games().begin(), m_library.games().end(), ours);
    return count == 1 ? m_translator.translate(u"1 game"_s)
                      : m_translator.fill(u"%ld games"_s, {QString::number(count)});
}

QStringList ConsoleFacts::headline() const
{
    const bool handheld = m_console && m_console->handheld;
    QStringList texts{maker(), year(), handheld ? m_translator.translate(u"Handheld"_s) : QString(), gamesText()};
    texts.removeAll(QString());
    return texts;
}

QString ConsoleFacts::extensions() const
{
    return m_console ? m_console->extensions.join(u", "_s) : QString();
}

bool ConsoleFacts::takesGames() const
{
    return m_console && m_console->engine != Engine::unavailable;
}

QString ConsoleFacts::note() const
{
    return m_console && m_console->note ? m_translator.translate(*m_console->note) : QString();
}

static EngineStatus statusOf(const Console *console, const InstalledEmulators &emulators)
{
    return console ? engineStatus(*console, emulators.known(), emulators.forConsole(console->id).has_value())
                   : EngineStatus::unknown;
}

QString ConsoleFacts::statusText() const
{
    return m_translator.translate(displayText(statusOf(m_console, m_emulators)));
}

QString ConsoleFacts::statusDot() const
{
    return dotName(statusOf(m_console, m_emulators));
}

bool ConsoleFacts::hasEmulators() const
{
    return m_console && !m_console->emulators.isEmpty();
}

QString ConsoleFacts::emulatorHint() const
{
    if (statusOf(m_console, m_emulators) != EngineStatus::emulatorNeeded) return {};
    // RetroArch is the one emulator that needs a part of its own for each console.
    if (!m_emulators.copies(u"retroarch"_s).isEmpty() && m_console->emulators.contains(u"retroarch"_s)) {
        const QString package = corePackage(m_console->id);
        return package.isEmpty()
            ? m_translator.translate(
                u"RetroArch lacks its core for this console. Download it in RetroArch: Online Updater, Core Downloader."_s)
            : m_translator.fill(u"RetroArch lacks its core for this console. It is in the package %@."_s, {package});
    }
    return m_translator.translate(u"Install one of these, and the games can be played."_s);
}

QString ConsoleFacts::controllerText() const
{
    const auto used = m_console ? m_emulators.forConsole(m_console->id) : std::nullopt;
    if (!used) return {};
    const QString &id = used->emulatorID;
    return m_translator.translate(controllerClass(id) == ControllerClass::manual ? controllerHint(id)
                                                                                 : controllerGuide(id).first());
}
