#include "ui/facts/PlaySettings.h"

#include "app/Translator.h"
#include "emulators/settings/QualityValue.h"
#include "platform/Preferences.h"

#include <QGuiApplication>
#include <QScreen>

using namespace Qt::StringLiterals;

PlaySettings::PlaySettings(Preferences &preferences, const Translator &translator, QObject *parent)
    : QObject(parent), m_preferences(preferences), m_translator(translator)
{
    connect(&preferences, &Preferences::changed, this, &PlaySettings::changed);
    connect(&preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == preference::playDisplay.name) emit screensChanged();
    });
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &PlaySettings::screensChanged);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &PlaySettings::screensChanged);
}

QString PlaySettings::quality() const
{
    return name(defaultQuality(m_preferences.get(preference::defaultQuality)));
}

void PlaySettings::setQuality(const QString &name)
{
    if (qualityPresetNamed(name) && name != quality()) m_preferences.set(preference::defaultQuality, name);
}

bool PlaySettings::fps60() const
{
    return m_preferences.get(preference::default60FPS);
}

void PlaySettings::setFps60(bool wanted)
{
    if (wanted != fps60()) m_preferences.set(preference::default60FPS, wanted);
}

bool PlaySettings::setsUpController() const
{
    return !m_preferences.contains(preference::autoXboxSetup) || m_preferences.get(preference::autoXboxSetup);
}

void PlaySettings::setSetsUpController(bool allowed)
{
    if (allowed != setsUpController()) m_preferences.set(preference::autoXboxSetup, allowed);
}

QString PlaySettings::screen() const
{
    return m_preferences.get(preference::playDisplay);
}

void PlaySettings::setScreen(const QString &name)
{
    if (name == screen()) return;
    if (name.isEmpty())
        m_preferences.remove(preference::playDisplay);
    else
        m_preferences.set(preference::playDisplay, name);
}

QVariantList PlaySettings::screens() const
{
    const auto choice = [](const QString &value, const QString &text) {
        return QVariantMap{{u"value"_s, value}, {u"text"_s, text}};
    };
    QVariantList choices{choice({}, m_translator.translate(u"Automatic"_s))};
    bool connected = false;
    for (const QScreen *each : QGuiApplication::screens()) {
        connected = connected || each->name() == screen();
        const QString model = each->model().simplified();
        choices += choice(each->name(), model.isEmpty() ? each->name() : model);
    }
    if (!screen().isEmpty() && !connected) choices += choice(screen(), m_translator.fill(u"%@ (off)"_s, {screen()}));
    return choices;
}
