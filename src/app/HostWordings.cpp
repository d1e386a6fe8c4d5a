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
    };
    return host == Host::linux ? linuxWordings.value(text, text) : text;
}
