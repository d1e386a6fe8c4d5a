#include "ui/LibraryAlerts.h"

#include "app/Translator.h"
#include "ui/DroppedItems.h"
#include "ui/facts/PlayDayBars.h"

#include <QDateTime>
#include <QFileInfo>

using namespace Qt::StringLiterals;

LibraryAlerts::LibraryAlerts(LibraryStore &library, const Translator &translator, QObject *parent)
    : QObject(parent), m_library(library), m_translator(translator)
{
    connect(&library, &LibraryStore::setAsideChanged, this, &LibraryAlerts::setAsideChanged);
    connect(&library, &LibraryStore::libraryReplaced, this, &LibraryAlerts::setAsideChanged);
    connect(&library, &LibraryStore::lastErrorChanged, this, &LibraryAlerts::errorChanged);
    connect(&library, &LibraryStore::missingFileChanged, this, &LibraryAlerts::missingChanged);
    connect(&library, &LibraryStore::scanningChanged, this, &LibraryAlerts::scanChanged);
    connect(&library, &LibraryStore::scanReportChanged, this, [this] {
        m_reportRead = false;
        emit scanChanged();
    });
}

QString LibraryAlerts::setAsideText() const
{
    if (m_setAsideRead || m_library.setAsideFile().isEmpty()) return {};
    return m_translator.fill(
        u"Velko couldn't read your library, so it starts with an empty one. Nothing is lost: the old file is kept as “%@”."_s,
        {QFileInfo(m_library.setAsideFile()).fileName()});
}

QString LibraryAlerts::restoreText() const
{
    if (m_library.setAsideFile().isEmpty()) return {}; // copies are looked for on disk
    const QString backup = m_library.newestBackup();
    if (backup.isEmpty()) return {};
    // Copies carry their day at the end of their names.
    const QDate day = QDate::fromString(QFileInfo(backup).fileName().right(10), Qt::ISODate);
    if (!day.isValid()) return m_translator.translate(u"Restore the last good copy"_s);
    return m_translator.fill(u"Restore the copy of %@"_s, {localeOf(m_translator).toString(day, u"d MMM yyyy"_s)});
}

QString LibraryAlerts::errorText() const
{
    return m_library.lastError() ? m_translator.message(*m_library.lastError()) : QString();
}

QString LibraryAlerts::missingText() const
{
    const GameEntry *game = m_library.game(m_library.missingFile());
    if (!game) return {};
    return m_translator.fill(
        u"“%@” isn't at its usual place anymore, and Velko couldn't find it on your Mac. It was maybe moved to an external drive, renamed or deleted."_s,
        {game->title});
}

QString LibraryAlerts::scanText() const
{
    if (!m_library.scanning()) return {};
    return m_translator.fill(u"Looking for games: %@ files so far"_s,
                             {localeOf(m_translator).toString(m_library.scannedFiles())});
}

QString LibraryAlerts::reportText() const
{
    if (m_reportRead || m_library.scanning() || !m_library.scanReport()) return {};
    return m_translator.message(*m_library.scanReport());
}

bool LibraryAlerts::addDropped(const QList<QUrl> &addresses)
{
    const DroppedItems items = droppedItems(addresses);
    if (!items.folders.isEmpty()) m_library.addFolders(items.folders);
    if (!items.files.isEmpty()) m_library.addFiles(items.files);
    return !items.folders.isEmpty() || !items.files.isEmpty();
}

void LibraryAlerts::keepGoing()
{
    m_setAsideRead = true;
    emit setAsideChanged();
}

void LibraryAlerts::dismissError()
{
    m_library.dismissError();
}

void LibraryAlerts::dismissReport()
{
    m_reportRead = true;
    emit scanChanged();
}

void LibraryAlerts::removeMissing()
{
    const QString id = m_library.missingFile();
    m_library.dismissMissingFile();
    m_library.remove(id);
}
