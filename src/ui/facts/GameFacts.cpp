#include "ui/facts/GameFacts.h"

#include "app/Translator.h"
#include "catalog/EmulatorDef.h"
#include "emulators/finding/InstalledEmulators.h"
#include "platform/Preferences.h"
#include "platform/Tasks.h"
#include "ui/facts/FileSize.h"
#include "ui/facts/LastPlayedText.h"
#include "ui/facts/PlayDayBars.h"
#include "ui/models/CoverFamily.h"
#include "ui/models/CoverSource.h"
#include "ui/models/EngineStatus.h"
#include "ui/models/PlayTimeText.h"

#include <QFileInfo>
#include <QTimeZone>
#include <QUrl>

using namespace Qt::StringLiterals;

static constexpr int chartDays = 14;

GameFacts::GameFacts(const Sources &sources, QObject *parent)
    : QObject(parent), m_library(sources.library), m_emulators(sources.emulators), m_preferences(sources.preferences),
      m_translator(sources.translator), m_clock(sources.clock), m_tasks(sources.tasks), m_workspace(sources.workspace),
      m_host(sources.host),
      m_options(sources.library, sources.emulators, sources.preferences, sources.translator, sources.host)
{
    connect(&m_library, &LibraryStore::gamesChanged, this, &GameFacts::changed);
    connect(&m_library, &LibraryStore::libraryReplaced, this, &GameFacts::changed);
    connect(&m_library, &LibraryStore::runningChanged, this, &GameFacts::changed);
    connect(&m_library, &LibraryStore::launchingChanged, this, &GameFacts::changed);
    connect(&m_emulators, &InstalledEmulators::changed, this, &GameFacts::changed);
}

void GameFacts::setGameID(const QString &id)
{
    if (id == m_gameID) return;
    m_gameID = id;
    m_options.setGameID(id);
    m_size.clear();
    emit changed();
    emit sizeChanged();
}

const Console *GameFacts::console() const
{
    return consoleWithID(consoleID(), m_host);
}

QString GameFacts::title() const
{
    return exists() ? entry()->title : QString();
}

QString GameFacts::cover() const
{
    return exists() ? coverSource(*entry()) : QString();
}

QString GameFacts::consoleID() const
{
    return exists() ? entry()->consoleID : QString();
}

QString GameFacts::consoleName() const
{
    return console() ? console()->name : consoleID();
}

QString GameFacts::consoleShort() const
{
    return console() ? console()->shortName : consoleID();
}

qreal GameFacts::ratio() const
{
    return heightRatio(coverFamily(consoleID()));
}

bool GameFacts::favorite() const
{
    return exists() && entry()->favorite.value_or(false);
}

QString GameFacts::status() const
{
    return exists() && entry()->status ? ::title(*entry()->status) : QString();
}

QString GameFacts::statusText() const
{
    return status().isEmpty() ? QString() : m_translator.translate(status());
}

QString GameFacts::statusDot() const
{
    if (!exists() || !entry()->status) return {};
    switch (*entry()->status) {
    case GameStatus::playing:
        return u"ok"_s;
    case GameStatus::backlog:
        return u"warn"_s;
    case GameStatus::completed:
        return u"info"_s;
    }
    return {};
}

QString GameFacts::playTime() const
{
    const double seconds = exists() ? entry()->playSeconds.value_or(0) : 0;
    return seconds > 0 ? m_translator.message(playTimeText(seconds)) : m_translator.fill(u"%@ min"_s, {u"0"_s});
}

QString GameFacts::playedText() const
{
    const bool played = exists() && entry()->playSeconds.value_or(0) > 0;
    return played ? m_translator.fill(u"%@ played"_s, {playTime()}) : m_translator.translate(u"Never played"_s);
}

QString GameFacts::lastPlayed() const
{
    if (!exists() || !entry()->lastPlayed) return {};
    return m_translator.message(
        ::lastPlayedText(entry()->lastPlayed->toDateTime(), m_clock.now(), localeOf(m_translator), lastSession()));
}

QString GameFacts::sessions() const
{
    return localeOf(m_translator).toString(exists() ? entry()->sessionCount.value_or(0) : 0);
}

QString GameFacts::lastSession() const
{
    if (!exists() || entry()->lastSessionSeconds.value_or(0) <= 0) return {};
    return m_translator.message(playTimeText(*entry()->lastSessionSeconds));
}

QVariantList GameFacts::days() const
{
    const auto daily = exists() ? entry()->daily.value_or(QMap<QString, double>()) : QMap<QString, double>();
    const QDate today = m_clock.now().date();
    return playDayBars(lastDays(daily, today, chartDays), today, m_translator);
}

QString GameFacts::firstDay() const
{
    const QDate today = m_clock.now().date();
    return shortDate(today.addDays(1 - chartDays), today, localeOf(m_translator));
}

QString GameFacts::emulator() const
{
    const auto copy = m_emulators.forConsole(consoleID());
    const EmulatorDef *def = copy ? emulatorWithID(copy->emulatorID, m_host) : nullptr;
    if (def) return def->name;
    return console() ? m_translator.translate(displayText(engineStatus(*console(), m_emulators.known(), false)))
                     : QString();
}

QString GameFacts::emulatorDot() const
{
    if (!console()) return {};
    return dotName(engineStatus(*console(), m_emulators.known(), m_emulators.forConsole(consoleID()).has_value()));
}

QString GameFacts::emulatorKind() const
{
    const auto copy = m_emulators.forConsole(consoleID());
    if (!copy) return {};
    switch (copy->kind) {
    case ApplicationKind::native:
        return m_translator.translate(u"Installed on the system"_s);
    case ApplicationKind::appImage:
        return m_translator.translate(u"AppImage"_s);
    case ApplicationKind::flatpak:
        return m_translator.translate(u"Flatpak"_s);
    case ApplicationKind::bundle:
        return m_translator.translate(u"Application"_s);
    }
    return {};
}

QString GameFacts::emulatorPath() const
{
    const auto copy = m_emulators.forConsole(consoleID());
    return copy ? copy->path : QString();
}

QString GameFacts::consoleNote() const
{
    return console() && console()->note ? m_translator.translate(*console()->note) : QString();
}

QString GameFacts::path() const
{
    return exists() ? entry()->path : QString();
}

QString GameFacts::fileName() const
{
    return QFileInfo(path()).fileName();
}

QString GameFacts::added() const
{
    if (!exists()) return {};
    const QDateTime now = m_clock.now();
    const QDate day = entry()->addedAt.toDateTime().toTimeZone(now.timeZone()).date();
    return shortDate(day, now.date(), localeOf(m_translator));
}

void GameFacts::measure()
{
    m_tasks.run(
        this, [path = path()] { return bytesBelow(path); },
        [this, id = m_gameID](std::optional<qint64> bytes) {
            if (id != m_gameID) return;
            m_size = bytes ? localeOf(m_translator).formattedDataSize(*bytes, 1, QLocale::DataSizeTraditionalFormat)
                           : m_translator.translate(u"The file is not there"_s);
            emit sizeChanged();
        });
}

bool GameFacts::hasState() const
{
    return exists() && entry()->statePath && entry()->stateSavedAt;
}

bool GameFacts::running() const
{
    return m_library.running().contains(m_gameID);
}

bool GameFacts::launching() const
{
    return m_library.launching() && m_library.launching()->gameID == m_gameID;
}

QString GameFacts::launchText() const
{
    if (!launching()) return {};
    const auto note = m_library.launching()->note;
    return note ? m_translator.message(*note) : m_translator.translate(u"Starting…"_s);
}

QString GameFacts::pageTab() const
{
    const QString tab = m_preferences.get(preference::gamePageTab);
    return QStringList{u"controller"_s, u"stats"_s, u"info"_s}.contains(tab) ? tab : u"play"_s;
}

void GameFacts::setPageTab(const QString &tab)
{
    if (tab == pageTab()) return;
    m_preferences.set(preference::gamePageTab, tab);
    emit pageTabChanged();
}

void GameFacts::play()
{
    if (running()) return m_library.goBackTo(m_gameID);
    m_library.launch(m_gameID);
}

void GameFacts::cancel()
{
    m_library.cancelLaunch();
}

void GameFacts::continueFromState()
{
    m_library.resume(m_gameID);
}

void GameFacts::toggleFavorite()
{
    m_library.setFavorite(m_gameID, !favorite());
}

void GameFacts::chooseStatus(const QString &status)
{
    m_library.setStatus(m_gameID, status == this->status() ? std::nullopt : gameStatusTitled(status));
}

void GameFacts::rename(const QString &title)
{
    if (!title.trimmed().isEmpty()) m_library.setTitle(m_gameID, title.trimmed());
}

void GameFacts::remove()
{
    m_library.remove(m_gameID);
}

void GameFacts::showInFolder() const
{
    m_workspace.openAddress(QUrl::fromLocalFile(QFileInfo(path()).absolutePath()));
}
