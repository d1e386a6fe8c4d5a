#pragma once

#include "play/EmulatorSettings.h"
#include "play/GameReach.h"
#include "play/PadEvent.h"
#include "play/RunningGame.h"
#include "play/overlay/GamePicture.h"
#include "play/overlay/GuideHint.h"
#include "play/overlay/GuideItem.h"
#include "play/overlay/GuideNotices.h"
#include "play/overlay/GuidePage.h"
#include "play/overlay/GuideSettings.h"
#include "play/supervision/SupervisorNotices.h"

#include <QImage>
#include <QObject>
#include <functional>
#include <optional>

class ControllerInput;
class GameFreezer;
class GameSupervisor;
class InstalledEmulators;
class LibraryStore;
class Preferences;
class SaveStates;
class ScreenCapture;
class Screenshots;

/// What the overlay acts on. All of it outlives the overlay.
struct GuideParts {
    GameReach reach;
    LibraryStore &library;
    Preferences &preferences;
    ControllerInput &controller;
    GameFreezer &freezer;
    GameSupervisor &supervisor;
    SaveStates &states;
    Screenshots &screenshots;
    ScreenCapture &capture;
    const InstalledEmulators &emulators;
};

/// Velko's own windows, as far as the overlay deals with them.
struct VelkoFront {
    std::function<void()> show; ///< brings the main window to the front; builds it when there is none
    std::function<void()> returnTo; ///< the same, but only when it is open
    std::function<bool()> isActive; ///< one of Velko's windows has the keyboard
    std::function<bool()> isFullScreen;
    std::function<bool()> panelIsShown; ///< as the desktop says
};

/// The menu over the running game. The game stands still while it is open. It draws nothing itself: the panel, the
/// notices, the curtain and the hint go by its state. Main thread only.
class GuideOverlay : public QObject {
    Q_OBJECT
public:
    GuideOverlay(const GuideParts &parts, VelkoFront front, QObject *parent = nullptr);
    ~GuideOverlay() override;

    const std::optional<RunningGame> &session() const { return m_session; } ///< the game started last, until its end
    bool isOpen() const { return m_open; } ///< the panel is shown
    GuidePage page() const { return m_page; }
    const QList<GuideItem> &items() const { return m_items; }
    int selection() const { return m_selection; } ///< index into the items; stops at both ends
    bool confirmQuit() const { return m_confirmQuit; } ///< the quit item waits for a second A
    bool quitStarted() const { return m_quitStarted; }
    const std::optional<GuideToast> &toast() const { return m_toast; } ///< in the panel
    Message aboutStates() const; ///< what the items for save states say of this game
    GameSettings gameSettings() const; ///< of the running game, or what a game without any has
    SettingsSupport support() const; ///< of the game's emulator, with the game's present quality
    bool counterMissing() const; ///< of frames: the emulator has none, and MangoHud is not installed
    QList<GuideSetting> settings() const; ///< the rows of the settings page
    int settingsPad() const { return m_settingsPad; } ///< the selected one
    QStringList controllerSteps() const; ///< of the controller page, in English
    int controllerPad() const { return m_controllerPad; } ///< its selected button: 0 opens settings, 1 says it works

    const QImage &picture() const
    {
        return m_picture;
    } ///< of the game, while the panel is open; null: none was to be had
    QString display() const; ///< the output that the game is on, or will be
    /// The output that the curtain covers now. It makes room for the menu, and for what the emulator asks.
    const std::optional<QString> &curtain() const { return m_curtain; }
    GuideNotices &notices() { return m_notices; }
    GuideHint &hint() { return m_hint; }
    /// Around the time that a notice lies over this place of the screen.
    void noticeComes(const QRect &place) { m_gamePicture.noticeComes(place); }
    void noticeGoes() { m_gamePicture.noticeGoes(); }

    void begin(const RunningGame &game); ///< it has just started; the supervisor has been told
    void toggle(); ///< View and Menu
    void hotKey(); ///< the same, but only over a game
    bool cancelLaunch(); ///< true when there was one to cancel
    void takeScreenshot(); ///< the Share button
    void anyInput(); ///< a button was pressed

    void handle(PadEvent event); ///< while the panel is open
    void select(int row); ///< the pointer is over this row of the page
    void choose(int row); ///< the pointer pressed it
    void step(int row, int by); ///< the pointer changes a setting
    void goBackToGame(); ///< the game that waits since "Back to Velko" goes on, in front

signals:
    void panelChanged(); ///< it opened or closed
    void changed(); ///< what it shows
    void sessionChanged();
    void curtainChanged();

private:
    void open(GuidePage page);
    void close(); ///< back to the game
    void leave(); ///< the panel goes, nothing else
    void end();
    void show(GuidePage page);
    void handleMenu(PadEvent event);
    void handleSettings(PadEvent event);
    void handleController(PadEvent event);
    void activate(GuideItem item);
    void askForState(GuideItem item);
    void backToVelko();
    void quit();
    void changeSetting(int by);
    void pressControllerButton();
    void answer(const Message &text, const QString &symbol); ///< in the panel, or over the game
    void frozenChanged();
    void activeChanged();
    void supervised();
    void wantCurtain(std::optional<QString> display);
    void updateCurtain();
    void clearView();
    void logOpening();
    std::optional<AppWindow> gameWindow() const;
    QImage takenPicture();
    void activateGame();

    GuideParts m_parts;
    GameReach m_reach;
    VelkoFront m_front;
    GuidePage m_page = GuidePage::menu;
    int m_selection = 0;
    bool m_confirmQuit = false;
    std::optional<GuideToast> m_toast;
    bool m_quitStarted = false;
    std::optional<RunningGame> m_session;
    int m_settingsPad = 0;
    int m_controllerPad = 0;
    QList<GuideItem> m_items = guideItems();
    bool m_open = false;
    bool m_closing = false; ///< the game goes on because the panel closes
    GuidePage m_opener = GuidePage::menu; ///< where the controller page was opened from
    GamePicture m_gamePicture;
    QImage m_picture;
    std::optional<QString> m_wantedCurtain; ///< by the supervision
    std::optional<QString> m_curtain;
    GuideNotices m_notices;
    SupervisorNotices m_supervisorNotices;
    GuideHint m_hint;
    EmulatorSettings m_emulatorSettings;
    Timer m_toastEnd;
    Timer m_log;
};
