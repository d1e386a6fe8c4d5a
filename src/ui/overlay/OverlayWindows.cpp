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
#include "ui/overlay/FrozenImageProvider.h"
#include "ui/overlay/NoticeFacts.h"
#include "ui/overlay/OverlayFacts.h"
#include "ui/window/Fonts.h"
#include "ui/window/Renderer.h"

#include <QGuiApplication>
#include <QPainterPath>
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

void load(QQuickView &view, const QString &name, const QVariantMap &properties)
{
    view.setInitialProperties(properties);
    view.setSource(QUrl(u"qrc:/qt/qml/Velko/qml/overlay/"_s + name));
}

/// What sizes are multiplied by on a display; the same as in the theme.
double scaleOf(const QSize &display)
{
    return qBound(0.75, qMin(display.width() / 1920.0, display.height() / 1080.0), 3.0);
}

/// Above everything, unknown to the window manager: the game keeps the keyboard and stays full screen.
constexpr Qt::WindowFlags silent = Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
    | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;
/// The panel takes the keyboard, so the window manager has to know it.
constexpr Qt::WindowFlags managed = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;

/// The engine and the three windows that it draws.
struct Built {
    QQmlEngine engine;
    QQuickView panel{&engine, nullptr};
    QQuickView notice{&engine, nullptr};
    QQuickView curtain{&engine, nullptr};
    InputMode input{&panel};

    ~Built() { panel.setSource({}); } // it goes before what it is bound to
};

QRegion rounded(const QSize &size, double radius)
{
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(0, 0), size), radius, radius);
    return QRegion(shape.toFillPolygon().toPolygon());
}

}

class OverlayWindows::Surfaces : public QObject {
public:
    explicit Surfaces(const OverlayWindowParts &parts);

    void build();
    const std::unique_ptr<Built> &built() const { return m_built; }

private:
    void showPanel();
    void showNotice();
    void showCurtain();
    void placeNotice();
    void forgetPicture();
    QScreen *screen(); ///< that the game is on

    OverlayWindowParts m_parts;
    OverlayFacts m_facts;
    NoticeFacts m_notices;
    std::unique_ptr<Built> m_built;
    Timer m_soon;
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
    connect(&guide, &GuideOverlay::curtainChanged, this, &Surfaces::showCurtain);
    connect(&m_notices, &NoticeFacts::changed, this, &Surfaces::showNotice);
    // A window that comes to the front would cover what the window manager does not know.
    connect(&parts.windows, &Windows::activeChanged, this, [this] {
        if (!m_built) return;
        if (m_built->curtain.isVisible()) m_built->curtain.raise();
        if (m_built->notice.isVisible()) m_built->notice.raise();
    });
    connect(&parts.windows, &Windows::displaysChanged, this, [this] {
        showCurtain();
        showPanel();
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
    load(panel, u"OverlayPanel.qml"_s,
         {{u"facts"_s, QVariant::fromValue(&m_facts)}, {u"input"_s, QVariant::fromValue(&m_built->input)}});
    panel.create();

    QQuickView &notice = m_built->notice;
    notice.setFlags(silent);
    notice.setColor(Qt::transparent);
    notice.setResizeMode(QQuickView::SizeViewToRootObject);
    load(notice, u"NoticePanel.qml"_s, {{u"facts"_s, QVariant::fromValue(&m_notices)}});
    const auto place = [this] { placeNotice(); };
    connect(&notice, &QWindow::widthChanged, this, place);
    connect(&notice, &QWindow::heightChanged, this, place);

    QQuickView &curtain = m_built->curtain;
    curtain.setFlags(silent);
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
    if (!m_parts.guide.isOpen()) {
        if (!m_built || !m_built->panel.isVisible()) return;
        m_built->panel.hide();
        m_forget = m_parts.clock.after(500ms, [this] { forgetPicture(); });
        return;
    }
    m_forget.reset();
    build();
    QQuickView &panel = m_built->panel;
    if (panel.isVisible() && panel.screen() == screen()) return;
    m_built->input.set(u"pad"_s);
    panel.setScreen(screen());
    panel.setGeometry(screen()->geometry());
    panel.show();
    panel.raise();
    panel.requestActivate();
    m_parts.windows.activate(panel.winId());
}

/// A hidden window keeps what it drew last, the picture of a whole display: it draws once more, for nobody.
void OverlayWindows::Surfaces::forgetPicture()
{
    static_cast<void>(m_built->panel.grabWindow());
}

void OverlayWindows::Surfaces::placeNotice()
{
    QQuickView &notice = m_built->notice;
    const QRect display = screen()->geometry();
    const double u = scaleOf(display.size());
    notice.setPosition(display.right() + 1 - qRound(24 * u) - notice.width(), display.top() + qRound(40 * u));
    notice.setMask(rounded(notice.size(), 21 * u));
}

void OverlayWindows::Surfaces::showNotice()
{
    if (!m_notices.isVisible()) {
        if (m_built) m_built->notice.hide();
        return;
    }
    build();
    QQuickView &notice = m_built->notice;
    notice.setFlag(Qt::WindowTransparentForInput, !m_notices.isClickable());
    notice.setScreen(screen());
    placeNotice();
    notice.show();
    notice.raise();
}

void OverlayWindows::Surfaces::showCurtain()
{
    const auto &display = m_parts.guide.curtain();
    if (!display) {
        if (!m_built) return;
        m_built->curtain.hide();
        m_built->curtain.setSource({}); // it holds the game's cover
        return;
    }
    build();
    QQuickView &curtain = m_built->curtain;
    if (curtain.source().isEmpty()) load(curtain, u"Curtain.qml"_s, {{u"facts"_s, QVariant::fromValue(&m_facts)}});
    QScreen *target = screenNamed(*display);
    curtain.setScreen(target);
    curtain.setGeometry(target->geometry());
    curtain.show();
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
    return m_surfaces->built() ? &m_surfaces->built()->notice : nullptr;
}

QQuickWindow *OverlayWindows::curtain() const
{
    return m_surfaces->built() ? &m_surfaces->built()->curtain : nullptr;
}
