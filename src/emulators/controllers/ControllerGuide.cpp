#include "emulators/controllers/ControllerGuide.h"

#include <QHash>

using namespace Qt::StringLiterals;

QString controllerHint(const QString &emulatorID)
{
    static const QHash<QString, QString> hints{
        {u"mgba"_s,
         u"mGBA: Tools → Settings → Controllers → Gamepad, pick the controller, then click each button and press it."_s},
        {u"dolphin"_s,
         u"Dolphin: Controllers → Port 1 “Standard Controller” → Configure → Device: your controller, then map each button."_s},
        {u"rpcs3"_s,
         u"RPCS3: Pads → Handler “SDL”, Device: your controller (the default mapping fits an Xbox layout)."_s},
        {u"cemu"_s,
         u"Cemu: Options → Input settings → “Wii U GamePad”, “+”, API “SDLController”, pick “Controller”, then Save."_s},
        {u"ppsspp"_s,
         u"PPSSPP: Settings → Controls → Control mapping → Autoconfigure, then map the left stick and L / R."_s},
        {u"azahar"_s, u"Azahar: Settings → Controls → “Auto Map”, then pick the controller."_s},
        {u"melonds"_s, u"melonDS: Config → Input and hotkeys → Joystick: your controller, then map each button."_s},
        {u"openemu"_s, u"OpenEmu: Preferences → Controls → pick the console, Input: your controller, then map."_s},
        {u"retroarch"_s,
         u"RetroArch: Settings → Input → RetroPad Binds → Port 1 Controls → Set All Controls, then press each button."_s},
    };
    return hints.value(emulatorID, u"Map the controller once in the emulator's settings."_s);
}

static QHash<QString, QStringList> allGuides()
{
    static const QString detected = u"Nothing to do: it detects the Xbox controller by itself."_s;
    static const QStringList automatic{
        u"Nothing to do: Velko sets the Xbox controller up in it for you, before each game."_s,
        u"If it doesn't respond: open the emulator once on its own, then play again from Velko."_s};
    static const QStringList itself{u"Nothing to do: the game reads the Xbox controller directly."_s};
    return {
        {u"melonds"_s,
         {u"Open melonDS on its own (button below)."_s,
          u"In the menu bar at the top of the screen: Config → Input and hotkeys (not Emu settings)."_s,
          u"In the “DS keypad” tab, pick your controller in the Joystick list at the bottom of the window."_s,
          u"Click each box (A, B, X, Y, L, R, Start, Select, D-pad) and press the matching controller button."_s,
          u"Click OK. It now works for all your DS games."_s}},
        {u"dolphin"_s,
         {u"Open Dolphin on its own (button below), then click Controllers in the toolbar."_s,
          u"GameCube games: Port 1 “Standard Controller” → Configure. Device: SDL/0/Xbox Series X Controller. Set L and R on the LT / RT triggers."_s,
          u"Wii games: Wii Remote 1 “Emulated Wii Remote” → Configure. Same Device, and tick “Sideways Wii Remote” in General and Options."_s,
          u"Map the Wii Remote: 2 = A, 1 = X, + = Start, − = Back, D-pad on the D-pad, and Motion Simulation → Shake on B."_s,
          u"Save each setup as a Profile, then Close."_s}},
        {u"rpcs3"_s,
         {u"First launch: in “Welcome to RPCS3”, tick “I have read the Quickstart guide”, untick “Show at startup”, then Continue. Otherwise this window stays open behind your games."_s,
          u"If it offers an update: tick “Don't show again for this version” (Velko updates RPCS3 from Essentials)."_s,
          u"Open RPCS3 on its own (button below), then click Pads in the toolbar."_s,
          u"Player 1 → Handlers: pick “SDL”, then click Refresh."_s,
          u"Devices: pick your Xbox controller. The buttons fill in by themselves (Cross = A, Circle = B…)."_s,
          u"No device detected? System Settings → Privacy & Security → Input Monitoring → + → RPCS3, then quit and reopen RPCS3."_s,
          u"PS Button: set it to “Guide” only, so View + Menu opens Velko's menu without RPCS3's."_s,
          u"Click Save."_s}},
        {u"cemu"_s,
         {u"Turn your controller on, then open Cemu on its own."_s,
          u"Menu Options → Input settings → tab “Controller 1”."_s, u"Emulated controller: “Wii U GamePad”."_s,
          u"Click “+”, API “SDLController”, click Refresh, then pick the one called just “Controller” (the “Xbox Series X Controller” one often doesn't respond on a Mac)."_s,
          u"Move the left stick: the red dot must move. If it doesn't, click “–”, then “+” and pick the other one."_s,
          u"The buttons are already mapped: type a profile name (e.g. Velko), click Save, close the window."_s}},
        {u"azahar"_s,
         {u"Open Azahar on its own (button below)."_s, u"Menu Emulation → Configure → Controls."_s,
          u"Click “Auto Map”, then press a button on your controller: everything is set at once."_s, u"Click OK."_s}},
        {u"pcsx2"_s, automatic},
        {u"duckstation"_s, automatic},
        {u"ppsspp"_s,
         {u"Turn your controller on, then open PPSSPP on its own (or press Esc on the keyboard during a game)."_s,
          u"Settings → Controls → Control mapping."_s,
          u"Click “Autoconfigure” and pick your controller: A, B, X, Y, the D-pad, Start and Select are set at once."_s,
          u"Analog stick: click “Up stick”, then push the left stick up. Same for “Down stick”, “Left stick” and “Right stick”."_s,
          u"L and R: click L and press LB, then click R and press RB. Delete the old ones with the trash can if there are any."_s,
          u"Go back: PPSSPP saves by itself. The PSP only had one stick: the right one isn't used in PSP games."_s}},
        {u"openemu"_s,
         {u"macOS must let OpenEmu read the controller: System Settings → Privacy & Security → Input Monitoring. Remove OpenEmu with − if it's there, then + and pick OpenEmu in the Velko folder › Emulators."_s,
          u"Same in Privacy & Security → Bluetooth (for a wireless controller): add OpenEmu."_s,
          u"Quit OpenEmu completely and open it again (button below)."_s,
          u"OpenEmu → Settings → Controls: pick the console at the top right, then Input: your Xbox controller (at the bottom)."_s,
          u"Click each box (Up, Down, A, B, Start…) and press the matching button. Do it once per console."_s}},
        {u"retroarch"_s,
         {u"Turn your controller on, then open RetroArch on its own (button below)."_s,
          u"If it says that your controller is configured and the menu follows it, there is nothing to do."_s,
          u"Otherwise use the keyboard's arrow keys and X: Settings → Input → RetroPad Binds → Port 1 Controls."_s,
          u"“Set All Controls”: press each button that it asks for."_s,
          u"“Save Controller Profile”. It now works for all your RetroArch games."_s}},
        {u"flycast"_s, {detected}},
        {u"xemu"_s,
         {detected,
          u"If it doesn't respond: open xemu on its own, then Machine → Settings → Input, and pick it for port 1."_s}},
        {u"mgba"_s,
         {detected, u"If a button doesn't respond: open mGBA on its own, then Tools → Settings → Controllers."_s}},
        {u"shadps4"_s, {detected, u"If it doesn't respond: turn it on first, then start the game again."_s}},
        {u"nxnative"_s, itself},
        {u"native"_s, itself},
    };
}

QStringList controllerGuide(const QString &emulatorID)
{
    static const QHash<QString, QStringList> guides = allGuides();
    return guides.value(emulatorID, {controllerHint(emulatorID)});
}
