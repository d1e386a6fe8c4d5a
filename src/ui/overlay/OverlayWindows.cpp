#include "ui/overlay/OverlayWindows.h"

#include "app/Translator.h"
#include "platform/Clock.h"
#include "platform/Places.h"
#include "platform/Windows.h"
#include "play/overlay/GuideOverlay.h"
#include "ui/QmlTypes.h"
#include "ui/focus/InputMode.h"
#include "ui/images/CoverImageProvider.h"
#include "ui/images/GlowImageProvider.h"
#include "ui/images/IconImageProvider.h"
#include "ui/images/ShadowImageProvider.h"
#include "ui/overlay/FrozenImageProvider.h"
#include "ui/overlay/NoticeFacts.h"
#include "ui/overlay/NoticeWindow.h"
#include "ui/overlay/OverlayFacts.h"
#include "ui/overlay/OverlaySurface.h"
#include "ui/overlay/WindowFade.h"
#include "ui/window/Fonts.h"
#include "ui/window/Renderer.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

void qml_register_types_Velko(); // generated; called so that the linker keeps it

namespace {

QScreen *screenNamed(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == name) return screen;
    }
    return QGuiApplication::primaryScreen();
}

/// The panel takes the keyboard, so the window manager has to know it.
constexpr Qt::WindowFlags managed = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
/// For window managers that put no window over one that is full screen, or keep it off their bars: icewm, i3, sway. Not
/// the type of a dock, which kwin puts below the game.
constexpr Qt::WindowFlags unmanaged = managed | Qt::BypassWindowManagerHint;

constexpr int panelGoesIn = 120, curtainGoesIn = 420; // milliseconds

/// The engine and the three windows that it draws.
struct Built {
    QQmlEngine engine;
    QQuickView panel{&engine, nullptr};
    QQuickView curtain{&engine, nullptr};
    WindowFade panelFade{panel};
    WindowFade curtainFade{curtain, QEasingCurve::OutQuad};
    InputMode input{&panel};
    std::optional<NoticeWindow> notice;

    ~Built() { panel.setSource({}); } // it goes before what it is bound to
};

}

class OverlayWindows::Surfaces : public QObject {
public:
    explicit Surfaces(const OverlayWindowParts &parts);

    void build();
    const std::unique_ptr<Built> &built() const { return m_built; }

private:
    void showPanel();
    void openPanel();
    void judgePanel();
    void showNotice();
    void showCurtain();
    void forgetPicture();
    QScreen *screen(); ///< that the game is on

    OverlayWindowParts m_parts;
    OverlayFacts m_facts;
    NoticeFacts m_notices;
    std::unique_ptr<Built> m_built;
    bool m_unmanaged = false; ///< the panel needs to be; once and for all
    Timer m_soon;
    Timer m_judge;
    Timer m_forget;
};

OverlayWindows::Surfaces::Surfaces(const OverlayWindowParts &parts)
    : m_parts(parts), m_facts(parts.guide, parts.library, parts.translator, parts.places.host),
      m_notices(parts.guide, parts.translator)
{
    GuideOverlay &guide = parts.guide;
    // The emulator needs a moment until it shows anything: this one is free.
    connect(&guide, &GuideOverlay::sessionChanged, this,
            [this] { m_soon = m_parts.clock.after(50ms, [this] { build(); }); });
    connect(&guide, &GuideOverlay::panelChanged, this, &Surfaces::showPanel);
    connect(&guide, &GuideOverlay::curtainChanged, this, [this] {
        showCurtain();
        showNotice();
    });
    connect(&m_notices, &NoticeFacts::changed, this, &Surfaces::showNotice);
    // A window that comes to the front would cover what the window manager does not know.
    connect(&parts.windows, &Windows::activeChanged, this, [this] {
        if (!m_built) return;
        for (QQuickView *view : {&m_built->curtain, &m_built->notice->view()})
            if (view->isVisible()) view->raise();
    });
    connect(&parts.windows, &Windows::displaysChanged, this, [this] {
        showCurtain();
        if (m_parts.guide.isOpen()) openPanel(); // made anew by Qt when its display goes: nothing leads keys to it
        showNotice();
    });
}

void OverlayWindows::Surfaces::build()
{
    if (m_built) return;
    chooseRenderer();
    nameFontSubstitutes();
    qml_register_types_Velko();
    m_built = std::make_unique<Built>();
    QQmlEngine &engine = m_built->engine;
    engine.addImportPath(u":/qt/qml"_s); // Qt 6.4 does not look there by itself
    engine.setProperty(TranslatorForQml::property, QVariant::fromValue(&m_parts.translator));
    engine.addImageProvider(u"icon"_s, new IconImageProvider);
    engine.addImageProvider(u"glow"_s, new GlowImageProvider);
    engine.addImageProvider(u"shadow"_s, new ShadowImageProvider);
    engine.addImageProvider(u"frozen"_s, new FrozenImageProvider(m_parts.guide));
    auto *covers = new CoverImageProvider(m_parts.library, m_parts.tasks, m_parts.places.host);
    engine.addImageProvider(u"cover"_s, covers);
    covers->begin();

    QQuickView &panel = m_built->panel;
    panel.setFlags(managed);
    panel.setTitle(u"Velko"_s);
    panel.setColor(QColor(0x0c, 0x0e, 0x14));
    panel.setResizeMode(QQuickView::SizeRootObjectToView);
    panel.setPersistentSceneGraph(true);
    panel.setPersistentGraphics(true);
    panel.setGeometry(screen()->geometry());
    loadOverlay(panel, u"OverlayPanel.qml"_s,
                {{u"facts"_s, QVariant::fromValue(&m_facts)}, {u"input"_s, QVariant::fromValue(&m_built->input)}});
    panel.create();

    m_built->notice.emplace(engine, m_notices);

    QQuickView &curtain = m_built->curtain;
    curtain.setFlags(overGame);
    curtain.setColor(QColor(0x08, 0x09, 0x0d));
    curtain.setCursor(Qt::BlankCursor);
    curtain.setResizeMode(QQuickView::SizeRootObjectToView);

    showCurtain();
    showNotice();
    showPanel();
}

QScreen *OverlayWindows::Surfaces::screen()
{
    QScreen *screen = screenNamed(m_parts.guide.display());
    m_facts.setDisplay(screen->size());
    return screen;
}

void OverlayWindows::Surfaces::showPanel()
{
    const bool composed = m_parts.windows.isComposed();
    if (!m_parts.guide.isOpen()) {
        m_judge.reset();
        if (!m_built) return;
        m_built->panel.setKeyboardGrabEnabled(false);
        m_built->panelFade.go({panelGoesIn, composed},
                              [this] { m_forget = m_parts.clock.after(500ms, [this] { forgetPicture(); }); });
        return;
    }
    m_forget.reset();
    build();
    if (m_built->panel.isVisible() && !m_built->panelFade.isGoing()) return;
    m_built->input.set(u"pad"_s);
    m_unmanaged = m_unmanaged || !m_parts.windows.haveLayers();
    openPanel();
}

void OverlayWindows::Surfaces::openPanel()
{
    QQuickView &panel = m_built->panel;
    panel.setFlags(m_unmanaged ? unmanaged : managed);
    panel.setScreen(screen());
    panel.setGeometry(screen()->geometry());
    m_built->panelFade.come({});
    panel.raise();
    panel.requestActivate();
    if (m_unmanaged) {
        panel.setKeyboardGrabEnabled(true); // sway takes the keyboard away from what it does not know
    } else {
        m_parts.windows.activate(panel.winId());
        m_judge = m_parts.clock.after(400ms, [this] { judgePanel(); });
    }
}

/// A window manager may have put the panel elsewhere, or not in front.
void OverlayWindows::Surfaces::judgePanel()
{
    QQuickView &panel = m_built->panel;
    const auto front = m_parts.windows.activeWindow();
    for (const Monitor &display : m_parts.windows.displays()) {
        if (front && front->id == panel.winId() && front->geometry == display.geometry) return;
    }
    m_unmanaged = true;
    panel.hide();
    openPanel();
}

/// A hidden window keeps what it drew last, the picture of a whole display: it draws once more, for nobody.
void OverlayWindows::Surfaces::forgetPicture()
{
    m_facts.forgetPicture();
    static_cast<void>(m_built->panel.grabWindow());
}

/// The curtain leaves nothing to say.
void OverlayWindows::Surfaces::showNotice()
{
    const bool composed = m_parts.windows.isComposed();
    if (m_notices.isVisible() && !m_parts.guide.curtain()) {
        build();
        NoticeWindow &notice = *m_built->notice;
        notice.show(*screen(), composed, m_notices.isClickable());
        m_parts.guide.noticeComes(notice.view().geometry());
    } else if (m_built) {
        m_built->notice->hide(composed, [this] { m_parts.guide.noticeGoes(); });
    }
}

void OverlayWindows::Surfaces::showCurtain()
{
    const bool composed = m_parts.windows.isComposed();
    const auto &display = m_parts.guide.curtain();
    if (!display) {
        if (!m_built) return;
        m_built->curtainFade.go({m_parts.guide.isOpen() ? 0 : curtainGoesIn, composed}, [this] {
            m_built->curtain.setSource({}); // it holds the game's cover
        });
        return;
    }
    build();
    QQuickView &curtain = m_built->curtain;
    if (curtain.source().isEmpty())
        loadOverlay(curtain, u"Curtain.qml"_s, {{u"facts"_s, QVariant::fromValue(&m_facts)}});
    QScreen *target = screenNamed(*display);
    curtain.setScreen(target);
    curtain.setGeometry(target->geometry());
    m_built->curtainFade.come({0, composed});
    curtain.raise();
}

OverlayWindows::OverlayWindows(const OverlayWindowParts &parts) : m_surfaces(std::make_unique<Surfaces>(parts)) { }

OverlayWindows::~OverlayWindows() = default;

bool OverlayWindows::panelIsShown() const
{
    return panel() && panel()->isExposed();
}

QQuickWindow *OverlayWindows::panel() const
{
    return m_surfaces->built() ? &m_surfaces->built()->panel : nullptr;
}

QQuickWindow *OverlayWindows::notice() const
{
    return m_surfaces->built() ? &m_surfaces->built()->notice->view() : nullptr;
}

QQuickWindow *OverlayWindows::curtain() const
{
    return m_surfaces->built() ? &m_surfaces->built()->curtain : nullptr;
}
