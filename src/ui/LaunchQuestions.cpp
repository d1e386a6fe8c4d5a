#include "ui/LaunchQuestions.h"

#include "app/Translator.h"
#include "catalog/EmulatorDef.h"
#include "emulators/controllers/ControllerGuide.h"
#include "emulators/finding/InstalledEmulators.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"

using namespace Qt::StringLiterals;

LaunchQuestions::LaunchQuestions(LibraryStore &library, const InstalledEmulators &emulators, Preferences &preferences,
                                 const Translator &translator, Host host, QObject *parent)
    : QObject(parent), m_library(library), m_emulators(emulators), m_preferences(preferences), m_translator(translator),
      m_host(host)
{
    connect(&library, &LibraryStore::controllerNoticeChanged, this, &LaunchQuestions::controllerChanged);
    connect(&library, &LibraryStore::setupIssueChanged, this, &LaunchQuestions::setupChanged);
}

QString LaunchQuestions::controllerEmulator() const
{
    const auto notice = m_library.controllerNotice();
    return notice ? notice->emulatorID : QString();
}

QString LaunchQuestions::controllerTitle() const
{
    const EmulatorDef *def = emulatorWithID(controllerEmulator(), m_host);
    return def ? m_translator.fill(u"Is the controller set up in %@?"_s, {def->name}) : QString();
}

QString LaunchQuestions::controllerText() const
{
    const QString id = controllerEmulator();
    return id.isEmpty() ? QString() : m_translator.translate(controllerHint(id));
}

QString LaunchQuestions::setupText() const
{
    const auto issue = m_library.setupIssue();
    return issue ? m_translator.message(issue->message) : QString();
}

QString LaunchQuestions::setupEmulator() const
{
    const auto issue = m_library.setupIssue();
    return issue ? issue->emulatorID : QString();
}

bool LaunchQuestions::setupInstalled() const
{
    return !m_emulators.copies(setupEmulator()).isEmpty();
}

void LaunchQuestions::play()
{
    m_library.goOn();
}

void LaunchQuestions::playAndStopAsking()
{
    if (m_library.controllerNotice()) m_preferences.set(preference::hideControllerNotice(controllerEmulator()), true);
    m_library.goOn();
}

void LaunchQuestions::dismissController()
{
    m_library.dismissControllerNotice();
}

void LaunchQuestions::dismissSetup()
{
    m_library.dismissSetupIssue();
}
