#include "ui/overlay/OverlayFacts.h"

#include "app/Translator.h"
#include "catalog/Console.h"
#include "library/LibraryStore.h"
#include "ui/models/CoverFamily.h"
#include "ui/models/CoverSource.h"
#include "ui/models/PlayTimeText.h"
#include "ui/overlay/SymbolIcon.h"

#include <QFileInfo>
#include <optional>

using namespace Qt::StringLiterals;

OverlayFacts::OverlayFacts(GuideOverlay &guide, const LibraryStore &library, const Translator &translator, Host host,
                           QObject *parent)
    : QObject(parent), m_guide(guide), m_library(library), m_translator(translator), m_host(host)
{
    connect(&guide, &GuideOverlay::changed, this, &OverlayFacts::refresh);
    connect(&guide, &GuideOverlay::panelChanged, this, &OverlayFacts::panelToggled);
    connect(&guide, &GuideOverlay::sessionChanged, this, &OverlayFacts::sessionChanged);
    sessionChanged();
    refresh();
}

void OverlayFacts::sessionChanged()
{
    if (!m_guide.session()) return;
    m_game = *m_guide.session();
    m_playedBefore = entry() ? entry()->playSeconds.value_or(0) : 0;
    emit gameChanged();
}

void OverlayFacts::panelToggled()
{
    if (m_guide.isOpen()) {
        m_played = m_library.sessionSeconds(m_game.gameID);
        m_picture = m_guide.picture().isNull() ? QString() : u"image://frozen/%1"_s.arg(++m_pictureNumber);
        emit pictureChanged();
    }
    refresh();
    emit panelChanged();
}

void OverlayFacts::forgetPicture()
{
    m_picture.clear();
    emit pictureChanged();
}

const GameEntry *OverlayFacts::entry() const
{
    return m_library.game(m_game.gameID);
}

QString OverlayFacts::translated(const Message &message) const
{
    return m_translator.message(message);
}

void OverlayFacts::refresh()
{
    if (m_guide.isOpen()) {
        m_quitting = m_guide.quitStarted();
        switch (m_guide.page()) {
        case GuidePage::menu:
            m_rows.set(menuRows());
            break;
        case GuidePage::info:
            m_rows.set(infoRows());
            break;
        case GuidePage::settings:
            m_rows.set(settingRows());
            break;
        case GuidePage::controller:
            m_rows.set({});
            break;
        }
    }
    emit changed();
}

void OverlayFacts::setDisplay(const QSize &size)
{
    if (size == m_display) return;
    m_display = size;
    emit displayChanged();
}

QString OverlayFacts::cover() const
{
    return entry() ? coverSource(*entry()) : QString();
}

QString OverlayFacts::consoleID() const
{
    return entry() ? entry()->consoleID : QString();
}

qreal OverlayFacts::ratio() const
{
    return heightRatio(coverFamily(consoleID()));
}

QStringList OverlayFacts::origin() const
{
    QStringList parts;
    if (const Console *console = consoleWithID(consoleID(), m_host)) parts += m_translator.translate(console->name);
    if (!m_game.isNative()) parts += m_game.name;
    parts += translated(playTimeText(std::max(1.0, m_played)));
    return parts;
}

QString OverlayFacts::page() const
{
    switch (m_guide.page()) {
    case GuidePage::menu:
        return u"menu"_s;
    case GuidePage::info:
        return u"info"_s;
    case GuidePage::settings:
        return u"settings"_s;
    case GuidePage::controller:
        return u"controller"_s;
    }
    return {};
}

QString OverlayFacts::heading() const
{
    switch (m_guide.page()) {
    case GuidePage::menu:
        return {};
    case GuidePage::info:
        return m_translator.translate(::title(GuideItem::info));
    case GuidePage::settings:
        return m_translator.translate(::title(GuideItem::settings));
    case GuidePage::controller:
        return m_translator.translate(u"Your controller doesn't respond in the game?"_s);
    }
    return {};
}

QString OverlayFacts::explanation() const
{
    if (m_guide.page() == GuidePage::settings) return translated(subtitle(GuideItem::settings, m_game, {}));
    if (m_guide.page() == GuidePage::controller)
        return m_translator.translate(
            u"This emulator has to be told about the controller once. Follow these steps, then come back to the game."_s);
    return {};
}

bool OverlayFacts::selectedActs() const
{
    const OverlayRow row = m_rows.rows().value(selection(), {.available = false});
    return row.available && row.kind != OverlayRow::Kind::fact;
}

bool OverlayFacts::selectedChanges() const
{
    return selectedActs() && m_rows.rows()[selection()].kind != OverlayRow::Kind::action;
}

int OverlayFacts::selection() const
{
    switch (m_guide.page()) {
    case GuidePage::menu:
        return m_guide.selection();
    case GuidePage::info:
        return -1;
    case GuidePage::settings:
        return m_guide.settingsPad();
    case GuidePage::controller:
        return m_guide.controllerPad();
    }
    return -1;
}

QStringList OverlayFacts::steps() const
{
    QStringList steps;
    for (const QString &step : m_guide.controllerSteps())
        steps += m_translator.translate(step);
    return steps;
}

QString OverlayFacts::toast() const
{
    return m_guide.toast() ? translated(m_guide.toast()->text) : QString();
}

QString OverlayFacts::toastIcon() const
{
    return m_guide.toast() ? symbolIcon(m_guide.toast()->symbol) : QString();
}

QString OverlayFacts::toastKind() const
{
    return m_guide.toast() ? symbolKind(m_guide.toast()->symbol) : QString();
}

bool OverlayFacts::pressKey(int key)
{
    static const QHash<int, PadEvent> events{
        {Qt::Key_Up, PadEvent::up},         {Qt::Key_Down, PadEvent::down},      {Qt::Key_Left, PadEvent::left},
        {Qt::Key_Right, PadEvent::right},   {Qt::Key_Return, PadEvent::confirm}, {Qt::Key_Enter, PadEvent::confirm},
        {Qt::Key_Space, PadEvent::confirm}, {Qt::Key_Escape, PadEvent::back},    {Qt::Key_Backspace, PadEvent::back},
        {Qt::Key_Tab, PadEvent::down},      {Qt::Key_Backtab, PadEvent::up},     {Qt::Key_Back, PadEvent::back},
    };
    const auto event = events.constFind(key);
    if (event == events.constEnd()) return false;
    m_guide.handle(*event);
    return true;
}

// Rows

static QString icon(GuideItem item)
{
    switch (item) {
    case GuideItem::resume:
        return u"play"_s;
    case GuideItem::saveState:
        return u"save"_s;
    case GuideItem::loadState:
        return u"load"_s;
    case GuideItem::screenshot:
        return u"camera"_s;
    case GuideItem::info:
        return u"info"_s;
    case GuideItem::settings:
        return u"settings"_s;
    case GuideItem::library:
        return u"shelf"_s;
    case GuideItem::quit:
        return u"power"_s;
    }
    return {};
}

OverlayRow OverlayFacts::row(GuideItem item) const
{
    OverlayRow row{.icon = icon(item),
                   .title = m_translator.translate(::title(item)),
                   .detail = translated(subtitle(item, *m_guide.session(), m_guide.aboutStates()))};
    if (item == GuideItem::quit && m_guide.confirmQuit()) {
        row.grave = true;
        row.detail = m_translator.translate(u"Press A again to quit"_s);
    }
    return row;
}

QList<OverlayRow> OverlayFacts::menuRows() const
{
    QList<OverlayRow> rows;
    if (!m_guide.session()) return rows;
    for (const GuideItem item : m_guide.items())
        rows += row(item);
    return rows;
}

static QString presetTitle(QualityPreset preset)
{
    switch (preset) {
    case QualityPreset::minimum:
        return u"Minimum"_s;
    case QualityPreset::medium:
        return u"Medium"_s;
    case QualityPreset::maximum:
        return u"Maximum"_s;
    }
    return {};
}

OverlayRow OverlayFacts::row(GuideSetting setting) const
{
    using enum GuideSetting;
    using Kind = OverlayRow::Kind;
    const GameSettings settings = m_guide.gameSettings();
    const SettingsSupport support = m_guide.support();
    const auto text = [this](const QString &english) { return m_translator.translate(english); };
    switch (setting) {
    case quality:
        if (!support.resolution)
            return {.kind = Kind::choice,
                    .icon = u"quality"_s,
                    .title = text(u"Quality"_s),
                    .detail = text(qualityNotOffered(support.emulatorID)),
                    .available = false};
        return {.kind = Kind::choice,
                .icon = u"quality"_s,
                .title = text(u"Quality"_s),
                .detail = translated(qualityCaption(support.emulatorID, support.quality, m_host)),
                .value = text(presetTitle(support.quality))};
    case fps60:
        return {.kind = Kind::toggle,
                .icon = u"gauge"_s,
                .title = text(m_guide.session()->isNative() ? u"Force 60 FPS"_s : u"60 FPS"_s),
                .on = settings.fps60};
    case widescreen:
        return {.kind = Kind::toggle, .icon = u"wide"_s, .title = text(u"Widescreen"_s), .on = settings.widescreen};
    case showFPS:
        return {.kind = Kind::toggle,
                .icon = u"eye"_s,
                .title = text(u"Show FPS"_s),
                .detail = m_guide.counterMissing()
                    ? text(u"Install MangoHud to see it: there is no counter of its own here"_s)
                    : QString(),
                .on = settings.showFPS};
    case fullScreen:
        return {.kind = Kind::toggle,
                .icon = u"fullscreen"_s,
                .title = text(u"Start the game in full screen"_s),
                .on = settings.fullScreen.value_or(true)};
    case controller:
        return {.icon = u"controller"_s, .title = text(u"Your controller doesn't respond in the game?"_s)};
    }
    return {};
}

QList<OverlayRow> OverlayFacts::settingRows() const
{
    QList<OverlayRow> rows;
    for (const GuideSetting setting : m_guide.settings())
        rows += row(setting);
    return rows;
}

QList<OverlayRow> OverlayFacts::infoRows() const
{
    QList<OverlayRow> rows;
    const auto add = [&](const QString &drawing, const QString &title, const QString &value) {
        if (!value.isEmpty())
            rows += {.kind = OverlayRow::Kind::fact,
                     .icon = drawing,
                     .title = m_translator.translate(title),
                     .value = value};
    };
    const GameEntry *game = entry();
    if (!game || !m_guide.session()) return rows;
    add(u"clock"_s, u"Play time"_s, translated(playTimeText(std::max(1.0, m_playedBefore + m_played))));
    add(u"calendar"_s, u"Sessions"_s, QString::number(game->sessionCount.value_or(0) + 1));
    add(u"console"_s, u"Console"_s, origin().value(0));
    add(u"chip"_s, u"Emulator"_s, m_guide.session()->isNative() ? QString() : m_guide.session()->name);
    add(u"file"_s, u"File"_s, QFileInfo(game->path).fileName());
    add(u"folder"_s, u"Folder"_s, QFileInfo(game->path).path());
    return rows;
}
