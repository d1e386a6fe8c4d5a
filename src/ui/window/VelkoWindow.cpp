#include "ui/window/VelkoWindow.h"

#include "app/AppState.h"
#include "app/Translator.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/launch/EmulatorOpener.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "ui/LaunchQuestions.h"
#include "ui/LibraryAlerts.h"
#include "ui/Notices.h"
#include "ui/OwnPages.h"
#include "ui/QmlTypes.h"
#include "ui/facts/BiosFacts.h"
#include "ui/facts/EmulatorFacts.h"
#include "ui/facts/FolderList.h"
#include "ui/facts/HomeFacts.h"
#include "ui/facts/PlayDayBars.h"
#include "ui/facts/PlaySettings.h"
#include "ui/facts/ProfileFacts.h"
#include "ui/focus/FocusKeeper.h"
#include "ui/focus/InputMode.h"
#include "ui/focus/PadNavigation.h"
#include "ui/focus/PointerHider.h"
#include "ui/images/BackdropImageProvider.h"
#include "ui/images/CoverImageProvider.h"
#include "ui/images/FrameImageProvider.h"
#include "ui/images/GlowImageProvider.h"
#include "ui/images/IconImageProvider.h"
#include "ui/images/ShadowImageProvider.h"
#include "ui/models/LibraryLists.h"
#include "ui/shots/ScreenshotGallery.h"
#include "ui/shots/ShotImageProvider.h"
#include "ui/window/Fonts.h"
#include "ui/window/WindowShell.h"

#include <QQmlComponent>
#include <QQmlEngine>

using namespace Qt::StringLiterals;

void qml_register_types_Velko(); // generated; called so that the linker keeps it

static QUrl page(const QString &name)
{
    return QUrl(u"qrc:/qt/qml/Velko/qml/"_s + name);
}

struct VelkoWindow::Content {
    Content(const WindowParts &given, std::unique_ptr<WindowShell> shown)
        : parts(given), sources{given.library, given.emulators, given.preferences, given.translator,
                                given.clock,   given.tasks,     given.workspace,   given.places.host},
          opener(given.places, given.workspace), home(sources, given.places), openGame(sources),
          gameEmulator(given.emulators, given.preferences, opener, given.changes, given.translator, given.places),
          shownEmulator(given.emulators, given.preferences, opener, given.changes, given.translator, given.places),
          bios(given.bios, given.emulators, given.translator, given.places),
          questions(given.library, given.emulators, given.preferences, given.translator, given.places.host),
          alerts(given.library, given.translator), notices(given.clock), ownPages(given.workspace, given.endpoints),
          profile(given.library, given.translator, given.clock),
          gallery(given.screenshots, given.workspace, given.places, localeOf(given.translator)),
          folders(given.places, given.tasks, given.translator),
          lists(given.library, given.emulators, given.app, given.preferences, given.translator, given.places),
          shell(shown ? std::move(shown) : std::make_unique<WindowShell>())
    { }

    WindowParts parts;
    GameFacts::Sources sources;
    EmulatorOpener opener;
    HomeFacts home;
    GameFacts openGame; ///< the game whose page is open
    EmulatorFacts gameEmulator; ///< the one that plays that game
    EmulatorFacts shownEmulator; ///< the one whose sheet is open
    BiosFacts bios; ///< of the console whose page is open
    LaunchQuestions questions;
    LibraryAlerts alerts;
    Notices notices;
    OwnPages ownPages;
    ProfileFacts profile;
    ScreenshotGallery gallery;
    FolderList folders;
    PlaySettings settings{parts.preferences, parts.translator};
    LibraryLists lists;
    QQmlEngine engine;
    const std::unique_ptr<WindowShell> shell;
    FocusKeeper keeper{shell.get()};
    InputMode input{shell.get()};
    PadNavigation pad{shell.get(), input, parts.translator};
    PointerHider pointer;
    std::unique_ptr<QQuickItem> pages; ///< they go before what they are bound to
};

VelkoWindow::VelkoWindow(WindowParts parts) : VelkoWindow(parts, nullptr) { }

VelkoWindow::VelkoWindow(WindowParts parts, std::unique_ptr<WindowShell> shell)
    : m_content(std::make_unique<Content>(parts, std::move(shell)))
{
    nameFontSubstitutes();
    qml_register_types_Velko();
    QQmlEngine *engine = &m_content->engine;
    engine->setIncubationController(m_content->shell->incubationController());
    engine->addImportPath(u":/qt/qml"_s); // Qt 6.4 does not look there by itself
    engine->setProperty(TranslatorForQml::property, QVariant::fromValue(&parts.translator));
    m_content->openGame.options()->setPatches(parts.patches);
    engine->addImageProvider(u"icon"_s, new IconImageProvider);
    engine->addImageProvider(u"glow"_s, new GlowImageProvider);
    engine->addImageProvider(u"shadow"_s, new ShadowImageProvider);
    engine->addImageProvider(u"frame"_s, new FrameImageProvider);
    engine->addImageProvider(u"backdrop"_s, new BackdropImageProvider);
    auto *covers = new CoverImageProvider(parts.library, parts.tasks, parts.places.host);
    engine->addImageProvider(u"cover"_s, covers);
    engine->addImageProvider(u"shot"_s, new ShotImageProvider(parts.places, parts.tasks));
    QObject::connect(&parts.screenshots, &ScreenshotStore::removeFailed, &m_content->notices,
                     [content = m_content.get()](const Message &why) {
                         content->notices.show(content->parts.translator.message(why), u"warn"_s);
                     });
    QObject::connect(
        m_content->shell.get(), &QQuickWindow::frameSwapped, m_content->shell.get(), [covers] { covers->begin(); },
        Qt::SingleShotConnection);
    parts.controller.onEvent = [pad = &m_content->pad](PadEvent event) { pad->handle(event); };
}

VelkoWindow::~VelkoWindow()
{
    m_content->parts.controller.onEvent = nullptr;
}

bool VelkoWindow::load()
{
    Content &content = *m_content;
    // The pages are made with their content and their size, so that nothing is laid out twice.
    content.home.setActive(content.parts.app.property("tab").toString() == u"home");
    const QVariantMap properties{{u"width"_s, content.shell->width()},
                                 {u"height"_s, content.shell->height()},
                                 {u"app"_s, QVariant::fromValue(&content.parts.app)},
                                 {u"library"_s, QVariant::fromValue(&content.parts.library)},
                                 {u"lists"_s, QVariant::fromValue(&content.lists)},
                                 {u"keeper"_s, QVariant::fromValue(&content.keeper)},
                                 {u"pad"_s, QVariant::fromValue(&content.pad)},
                                 {u"controller"_s, QVariant::fromValue(&content.parts.controller)},
                                 {u"input"_s, QVariant::fromValue(&content.input)},
                                 {u"home"_s, QVariant::fromValue(&content.home)},
                                 {u"openGame"_s, QVariant::fromValue(&content.openGame)},
                                 {u"gameEmulator"_s, QVariant::fromValue(&content.gameEmulator)},
                                 {u"shownEmulator"_s, QVariant::fromValue(&content.shownEmulator)},
                                 {u"bios"_s, QVariant::fromValue(&content.bios)},
                                 {u"questions"_s, QVariant::fromValue(&content.questions)},
                                 {u"alerts"_s, QVariant::fromValue(&content.alerts)},
                                 {u"notices"_s, QVariant::fromValue(&content.notices)},
                                 {u"ownPages"_s, QVariant::fromValue(&content.ownPages)},
                                 {u"profile"_s, QVariant::fromValue(&content.profile)},
                                 {u"gallery"_s, QVariant::fromValue(&content.gallery)},
                                 {u"settings"_s, QVariant::fromValue(&content.settings)},
                                 {u"folders"_s, QVariant::fromValue(&content.folders)}};
    QQmlComponent component(&content.engine, page(u"Main.qml"_s));
    content.pages.reset(qobject_cast<QQuickItem *>(component.createWithInitialProperties(properties)));
    for (const QQmlError &error : component.errors())
        qWarning("%s", qPrintable(error.toString()));
    if (content.pages) content.shell->setContent(content.pages.get());
    return content.pages != nullptr;
}

QQuickWindow *VelkoWindow::window()
{
    return m_content->shell.get();
}

void VelkoWindow::raise()
{
    WindowShell &window = *m_content->shell;
    // show() would take a maximised window out of that state.
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.setVisible(true);
    window.raise();
    window.requestActivate();
}

void VelkoWindow::hidePointer()
{
    m_content->pointer.hide();
}
