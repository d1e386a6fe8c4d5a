#include "play/overlay/GuideSettings.h"

QList<GuideSetting> guideSettings(const SettingsSupport &support, bool guided, Host host)
{
    const bool itself =
        support.emulatorID == QLatin1String("native") || support.emulatorID == QLatin1String("nxnative");
    QList<GuideSetting> rows{GuideSetting::quality}; // where there is no choice, it says why
    if (support.fps || (itself && host == Host::mac)) rows += GuideSetting::fps60;
    if (support.widescreen) rows += GuideSetting::widescreen;
    if (support.hud) rows += GuideSetting::showFPS;
    if (support.fullScreen) rows += GuideSetting::fullScreen;
    if (guided) rows += GuideSetting::controller;
    return rows;
}

static QualityPreset stepped(QualityPreset present, int by)
{
    constexpr int count = 3;
    const int next = int(present) + (by == 0 ? 1 : by);
    return QualityPreset(by == 0 ? next % count : qBound(0, next, count - 1));
}

static bool switched(bool present, int by)
{
    return by == 0 ? !present : by > 0;
}

GameSettings stepped(GameSettings settings, GuideSetting setting, int by, const SettingsSupport &support)
{
    switch (setting) {
    case GuideSetting::quality:
        if (support.resolution) settings.quality = stepped(support.quality, by);
        break;
    case GuideSetting::fps60:
        settings.fps60 = switched(settings.fps60, by);
        break;
    case GuideSetting::widescreen:
        settings.widescreen = switched(settings.widescreen, by);
        break;
    case GuideSetting::showFPS:
        settings.showFPS = switched(settings.showFPS, by);
        break;
    case GuideSetting::fullScreen:
        settings.fullScreen = switched(settings.fullScreen.value_or(true), by);
        break;
    case GuideSetting::controller:
        break;
    }
    return settings;
}
