#include "ui/facts/GameOptions.h"

#include "app/Translator.h"
#include "catalog/Console.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/launch/LaunchPlan.h"
#include "emulators/patches/FramePatches.h"
#include "emulators/settings/QualityValue.h"
#include "platform/Preferences.h"

using namespace Qt::StringLiterals;

GameOptions::GameOptions(LibraryStore &library, const InstalledEmulators &emulators, const Preferences &preferences,
                         const Translator &translator, Host host, QObject *parent)
    : QObject(parent), m_library(library), m_emulators(emulators), m_preferences(preferences), m_translator(translator),
      m_host(host)
{
    connect(&m_library, &LibraryStore::gamesChanged, this, &GameOptions::changed);
    connect(&m_library, &LibraryStore::libraryReplaced, this, &GameOptions::changed);
    connect(&m_emulators, &InstalledEmulators::changed, this, &GameOptions::changed);
}

void GameOptions::setGameID(const QString &id)
{
    if (id == m_gameID) return;
    m_gameID = id;
    lookForPatch();
    emit changed();
}

void GameOptions::setPatches(FramePatches *patches)
{
    m_patches = patches;
    if (!m_patches) return;
    connect(m_patches, &FramePatches::changed, this, [this](const QString &id) {
        if (id == m_gameID) emit changed();
    });
}

/// Only for a game that is to have it: the list is not fetched for nothing.
void GameOptions::lookForPatch()
{
    if (m_patches && entry() && fps60() && fps60Offered()) m_patches->look(m_gameID, entry()->consoleID, entry()->path);
}

QString GameOptions::patchText() const
{
    if (!m_patches || !fps60()) return {};
    using Phase = FramePatchState::Phase;
    const FramePatchState state = m_patches->state(m_gameID);
    switch (state.phase) {
    case Phase::unknown:
        return {};
    case Phase::searching:
        return m_translator.translate(u"Looking for a patch…"_s);
    case Phase::downloading:
        if (state.progress < 0) return m_translator.translate(u"Downloading the list of patches…"_s);
        return m_translator.fill(u"Downloading the list of patches… %ld%%"_s,
                                 {QString::number(int(state.progress * 100))});
    case Phase::available:
        return m_translator.fill(u"Patch: %@"_s, {state.patch});
    case Phase::none:
    case Phase::failed:
        return m_translator.message(state.message);
    }
    return {};
}

const Console *GameOptions::console() const
{
    return entry() ? consoleWithID(entry()->consoleID, m_host) : nullptr;
}

GameSettings GameOptions::settings() const
{
    if (entry() && entry()->settings) return *entry()->settings;
    GameSettings fresh;
    fresh.fps60 = m_preferences.get(preference::default60FPS);
    return fresh;
}

QString GameOptions::engine() const
{
    if (!console()) return {};
    if (opensItself(entry()->path, *console(), m_host)) return engineOfNativeGame(*console());
    const auto copy = m_emulators.forConsole(console()->id);
    return copy ? copy->emulatorID : console()->emulators.value(0);
}

bool GameOptions::native() const
{
    return engine() == "nxnative"_L1 || engine() == "native"_L1;
}

QualityPreset GameOptions::preset() const
{
    return settings().quality.value_or(defaultQuality(m_preferences.get(preference::defaultQuality)));
}

SettingsSupport GameOptions::support() const
{
    return settingsSupport(engine(), preset(), m_host);
}

QString GameOptions::notAvailable() const
{
    const QString name = support().emulatorName;
    return name.isEmpty() ? m_translator.translate(u"Not available for this game"_s)
                          : m_translator.fill(u"Not available with %@"_s, {name});
}

// Quality

bool GameOptions::qualityOffered() const
{
    return support().resolution;
}

QString GameOptions::quality() const
{
    return name(preset());
}

QString GameOptions::qualityText() const
{
    return qualityOffered() ? m_translator.message(qualityCaption(engine(), preset(), m_host))
                            : m_translator.translate(qualityNotOffered(engine()));
}

QVariantList GameOptions::qualityChoices() const
{
    QVariantList choices;
    for (const auto preset : {QualityPreset::minimum, QualityPreset::medium, QualityPreset::maximum})
        choices += QVariantMap{{u"value"_s, name(preset)}, {u"text"_s, qualityLabel(engine(), preset, m_host)}};
    return choices;
}

void GameOptions::setQuality(const QString &name)
{
    const auto preset = qualityPresetNamed(name);
    if (!preset) return;
    GameSettings settings = this->settings();
    settings.quality = preset;
    m_library.setSettings(m_gameID, settings);
}

// Frame rate

bool GameOptions::fps60() const
{
    return settings().fps60;
}

bool GameOptions::fps60Offered() const
{
    return native() ? m_host == Host::mac : support().fps;
}

QString GameOptions::fps60Title() const
{
    return m_translator.translate(native() ? u"Force 60 FPS"_s : u"60 FPS"_s);
}

QString GameOptions::fps60Text() const
{
    if (fps60Offered()) return patchText();
    return native() ? m_translator.translate(u"Only games rebuilt by nxnative on a Mac can do this"_s) : notAvailable();
}

bool GameOptions::downloadingPatches() const
{
    return m_patches && fps60() && m_patches->state(m_gameID).phase == FramePatchState::Phase::downloading;
}

void GameOptions::cancelDownload()
{
    if (m_patches) m_patches->cancelDownload(m_gameID);
}

void GameOptions::setFps60(bool on)
{
    GameSettings settings = this->settings();
    settings.fps60 = on;
    m_library.setSettings(m_gameID, settings);
    if (on)
        lookForPatch();
    else if (m_patches)
        m_patches->cancel(m_gameID);
}

// The other switches

bool GameOptions::widescreen() const
{
    return settings().widescreen;
}

bool GameOptions::widescreenOffered() const
{
    return support().widescreen;
}

QString GameOptions::widescreenText() const
{
    return widescreenOffered() ? QString() : notAvailable();
}

void GameOptions::setWidescreen(bool on)
{
    GameSettings settings = this->settings();
    settings.widescreen = on;
    m_library.setSettings(m_gameID, settings);
}

bool GameOptions::showFPS() const
{
    return settings().showFPS;
}

bool GameOptions::showFPSOffered() const
{
    return support().hud && (!counterNeedsMangoHud(engine(), m_host) || m_emulators.mangoHud());
}

QString GameOptions::showFPSText() const
{
    if (showFPSOffered()) return {};
    return m_translator.translate(u"Install MangoHud to see it: there is no counter of its own here"_s);
}

void GameOptions::setShowFPS(bool on)
{
    GameSettings settings = this->settings();
    settings.showFPS = on;
    m_library.setSettings(m_gameID, settings);
}

bool GameOptions::fullScreen() const
{
    return settings().fullScreen.value_or(true);
}

void GameOptions::setFullScreen(bool on)
{
    GameSettings settings = this->settings();
    settings.fullScreen = on;
    m_library.setSettings(m_gameID, settings);
}
