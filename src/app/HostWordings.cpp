#include "app/HostWordings.h"

#include <QHash>

using namespace Qt::StringLiterals;

QString hostWording(const QString &text, Host host)
{
    static const QHash<QString, QString> linuxWordings{
        {u"“%@” isn't at its usual place anymore, and Velko couldn't find it on your Mac. It was maybe moved to an external drive, renamed or deleted."_s,
         u"“%@” isn't at its usual place anymore, and Velko couldn't find it on this computer. It was maybe moved to an external drive, renamed or deleted."_s},
        {u"Mac apps"_s, u"Native games"_s},
        {u"Mac"_s, u"Linux"_s},
        {u"No simple CD-i emulator on Mac yet."_s, u"No simple CD-i emulator yet."_s},
        {u"No simple Jaguar CD emulator on Mac yet."_s, u"No simple Jaguar CD emulator yet."_s},
        {u"No Xbox 360 emulator on Mac yet. Some games exist as native ports (recompilations)."_s,
         u"No Xbox 360 emulator on Linux yet. Some games exist as native ports (recompilations)."_s},
        {u"No emulator: the game is recompiled into a real native Mac app with nxnative."_s,
         u"No emulator: the game is recompiled into a real native app with nxnative, on a Mac only for now."_s},
        {u"After dropping the files, select them once in xemu's settings (Machine → System)."_s,
         u"Drop the three files here: Velko enters them in xemu's settings, which are there once xemu has been started."_s},
        {u"Games already recompiled into Mac apps (Zelda 64: Recompiled, Ship of Harkinian, Bloodborne…). Drop the .app here."_s,
         u"Games already recompiled into native programs (Zelda 64: Recompiled, Ship of Harkinian…). Drop the AppImage or the program here."_s},
        {u"Runs on any Mac"_s, u"Runs on any computer"_s},
        {u"Sharp, for most Macs"_s, u"Sharp, for most computers"_s},
        {u"The best picture, for powerful Macs"_s, u"The best picture, for powerful computers"_s},
        {u"Retro consoles look the same on any Mac: nothing to set."_s,
         u"Retro consoles look the same on any computer: nothing to set."_s},
        {u"Native Mac app, no emulator"_s, u"Native game, no emulator"_s},
        {u"In the menu bar at the top of the screen: Config → Input and hotkeys (not Emu settings)."_s,
         u"In the menu bar at the top of its window: Config → Input and hotkeys (not Emu settings)."_s},
        {u"GameCube games: Port 1 “Standard Controller” → Configure. Device: SDL/0/Xbox Series X Controller. Set L and R on the LT / RT triggers."_s,
         u"GameCube games: Port 1 “Standard Controller” → Configure. Device: the line with your controller's name (it begins with SDL or evdev). Set L and R on the LT / RT triggers."_s},
        {u"No device detected? System Settings → Privacy & Security → Input Monitoring → + → RPCS3, then quit and reopen RPCS3."_s,
         u"No device detected? Turn the controller on first, then quit and reopen RPCS3."_s},
        {u"Click “+”, API “SDLController”, click Refresh, then pick the one called just “Controller” (the “Xbox Series X Controller” one often doesn't respond on a Mac)."_s,
         u"Click “+”, API “SDLController”, click Refresh, then pick your controller by its name."_s},
        {u"Cemu: Options → Input settings → “Wii U GamePad”, “+”, API “SDLController”, pick “Controller”, then Save."_s,
         u"Cemu: Options → Input settings → “Wii U GamePad”, “+”, API “SDLController”, pick your controller, then Save."_s},
        {u"macOS blocked the screenshot: allow Velko in Privacy & Security → Screen Recording."_s,
         u"The desktop gave no picture of the game. Screenshots need X11, or XWayland under Wayland."_s},
        {u"Allow Velko in System Settings → Privacy & Security → Accessibility, then try again."_s,
         u"Velko can't reach the menus of other programs here. Install the package at-spi2-core, log in again, then try again."_s},
        {u"Allow Velko in Accessibility to load your save state automatically."_s,
         u"Install the package at-spi2-core and log in again, so that Velko can load your save state automatically."_s},
        {u"Closes by itself in %ld s, no need to press ⌘Q"_s, u"Closes by itself in %ld s, no need to close it"_s},
    };
    return host == Host::linux ? linuxWordings.value(text, text) : text;
}
