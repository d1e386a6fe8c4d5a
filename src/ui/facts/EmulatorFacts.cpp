#include "ui/facts/EmulatorFacts.h"

#include "app/Translator.h"
#include "catalog/Console.h"
#include "emulators/controllers/ControllerClass.h"
#include "emulators/controllers/ControllerGuide.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/launch/EmulatorOpener.h"
#include "emulators/settings/EmulatorChanges.h"
#include "platform/Preferences.h"
#include "ui/CopyText.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

EmulatorFacts::EmulatorFacts(const InstalledEmulators &emulators, Preferences &preferences, EmulatorOpener &opener,
                             EmulatorChanges &changes, const Translator &translator, const Places &places,
                             QObject *parent)
    : QObject(parent), m_emulators(emulators), m_preferences(preferences), m_opener(opener), m_changes(changes),
      m_translator(translator), m_places(places)
{
    connect(&changes, &EmulatorChanges::changed, this, &EmulatorFacts::changed);
    connect(&changes, &EmulatorChanges::putBackFinished, this, [this](const QString &id, const PutBackReport &report) {
        if (id != m_id) return;
        m_putBack = m_translator.message(sentence(report, name()));
        emit changed();
    });
    connect(&emulators, &InstalledEmulators::changed, this, &EmulatorFacts::changed);
    connect(&opener, &EmulatorOpener::changed, this, &EmulatorFacts::changed);
    connect(&preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == preference::controllerConfigured(m_id).name) emit changed();
    });
}

void EmulatorFacts::setEmulatorID(const QString &id)
{
    if (id == m_id) return;
    m_id = id;
    m_problem.clear();
    m_putBack.clear();
    emit changed();
}

QString EmulatorFacts::name() const
{
    return def() ? def()->name : QString();
}

QString EmulatorFacts::title() const
{
    if (m_id == "nxnative"_L1 || m_id == "native"_L1) return m_translator.translate(u"Native Mac app, no emulator"_s);
    if (!def()) return {};
    return m_translator.fill(byHand() ? u"Set the controller up in %@"_s : u"The controller in %@"_s, {name()});
}

QStringList EmulatorFacts::steps() const
{
    QStringList steps = m_id.isEmpty() ? QStringList() : controllerGuide(m_id);
    for (QString &step : steps)
        step = m_translator.translate(step);
    return steps;
}

bool EmulatorFacts::byHand() const
{
    return def() && controllerClass(m_id) == ControllerClass::manual;
}

bool EmulatorFacts::configured() const
{
    return m_preferences.get(preference::controllerConfigured(m_id));
}

void EmulatorFacts::setConfigured(bool configured)
{
    if (def()) m_preferences.set(preference::controllerConfigured(m_id), configured);
}

QString EmulatorFacts::stateText() const
{
    if (!byHand()) return m_translator.translate(u"Nothing to do"_s);
    return m_translator.translate(configured() ? u"It works"_s : u"Not set up yet"_s);
}

QString EmulatorFacts::stateDot() const
{
    return byHand() && !configured() ? u"warn"_s : u"ok"_s;
}

bool EmulatorFacts::installed() const
{
    return !m_emulators.copies(m_id).isEmpty();
}

bool EmulatorFacts::open() const
{
    return m_opener.isOpen(m_id);
}

QVariantList EmulatorFacts::copies() const
{
    const QList<InstalledEmulator> found = m_emulators.copies(m_id);
    QVariantList list;
    for (const InstalledEmulator &copy : found) {
        list += QVariantMap{{u"text"_s, m_translator.translate(copyText(copy.kind))},
                            {u"path"_s, copy.path},
                            {u"place"_s, fromHome(copy.path, m_places)},
                            {u"chosen"_s, copy == found.first()}};
    }
    // The list stands still when another copy is chosen, although the chosen one is found first.
    std::sort(list.begin(), list.end(), [](const QVariant &a, const QVariant &b) {
        return a.toMap()[u"path"_s].toString() < b.toMap()[u"path"_s].toString();
    });
    return list;
}

QString EmulatorFacts::problem() const
{
    return m_problem;
}

QString EmulatorFacts::systemFilesConsole() const
{
    QStringList ids;
    for (const Console &console : consoles(m_places.host)) {
        if (console.bios && console.emulators.value(0) == m_id) ids += console.id;
    }
    return ids.size() == 1 ? ids.first() : QString();
}

static QString shownValue(const EmulatorChange &change)
{
    return change.old.isEmpty() ? u"–"_s : change.old.first();
}

QVariantList EmulatorFacts::edits() const
{
    QVariantList list;
    if (m_id.isEmpty()) return list;
    for (const EmulatorChange &change : m_changes.of(m_id)) {
        const QStringList place = QStringList{QFileInfo(change.file).fileName()} + change.section;
        list += QVariantMap{{u"key"_s, change.key},
                            {u"value"_s, change.written},
                            {u"old"_s, shownValue(change)},
                            {u"place"_s, place.join(u" › "_s)}};
    }
    return list;
}

bool EmulatorFacts::puttingBack() const
{
    return m_changes.isWaiting(m_id);
}

QString EmulatorFacts::putBackText() const
{
    return puttingBack() ? m_translator.fill(u"It is put back as soon as %@ has ended."_s, {name()}) : m_putBack;
}

void EmulatorFacts::putBack()
{
    if (puttingBack()) return m_changes.cancelPutBack(m_id);
    m_putBack.clear();
    m_changes.putBack(m_id);
}

void EmulatorFacts::openAlone()
{
    const QList<InstalledEmulator> copies = m_emulators.copies(m_id);
    if (copies.isEmpty()) return;
    const auto opened = m_opener.open(copies.first());
    m_problem = opened ? QString() : m_translator.message(opened.failure());
    emit changed();
}

void EmulatorFacts::choose(const QString &path)
{
    if (def()) m_preferences.set(preference::emulatorPath(m_id), path);
}
