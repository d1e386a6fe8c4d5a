#include "play/states/StateFacts.h"

#include "emulators/finding/EmulatorFolders.h"
#include "emulators/launch/CommandChannel.h"
#include "play/states/StateKeySettings.h"

#include <QFile>

using namespace Qt::StringLiterals;

static LocalAddress addressOf(const StateQuestion &question, const InstalledEmulator &copy, const Places &places)
{
    if (question.engine == "retroarch"_L1) return {{}, retroArchPort(question.gamePath)};
    if (question.engine == "xemu"_L1) {
        const QString flatpakID = copy.kind == ApplicationKind::flatpak ? copy.applicationID : QString();
        return {xemuSocket(question.gamePath, places.runtime, flatpakID), 0};
    }
    if (question.engine != "pcsx2"_L1) return {};
    QFile settings(settingsFile(copy.emulatorID, emulatorFolders(copy, places)));
    const QByteArray text = settings.open(QFile::ReadOnly) ? settings.read(2 * 1024 * 1024) : QByteArray();
    return {pcsx2Socket(text, places.runtime), 0};
}

StateFacts stateFacts(const StateQuestion &question, const Places &places)
{
    const InstalledEmulator usual{question.engine, ApplicationKind::native, {}, {}, {}};
    const InstalledEmulator copy = question.copies.value(0, usual);
    StateFacts facts;
    const StateKeySettings settings = stateKeySettings(question.engine, emulatorFolders(copy, places));
    const auto keys = shortcutPair(question.engine, places.host);
    if (settings.readable) {
        facts.save = settings.save;
        facts.load = settings.load;
        facts.keysBound = !keys && settings.save && settings.load;
    } else if (const auto usual = keys ? keys : keysBesideMenus(question.engine, places.host)) {
        facts.save = usual->save;
        facts.load = usual->load;
    }
    facts.address = addressOf(question, copy, places);
    facts.places = statePlaces(question.engine, question.gamePath, question.copies, places);
    facts.files = stateFiles(facts.places);
    return facts;
}
