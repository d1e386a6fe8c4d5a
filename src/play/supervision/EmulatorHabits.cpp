#include "play/supervision/EmulatorHabits.h"

#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

bool endsByItsWindow(const QString &engine)
{
    static const QStringList withoutHandler{u"mgba"_s, u"rpcs3"_s, u"azahar"_s};
    return withoutHandler.contains(engine);
}

std::optional<KeyStroke> fullScreenKey(const QString &engine, Host host)
{
    if (host == Host::mac) return KeyStroke{Qt::Key_F, Qt::ControlModifier | Qt::MetaModifier};
    static const KeyStroke f11{Qt::Key_F11}, altReturn{Qt::Key_Return, Qt::AltModifier};
    static const QHash<QString, KeyStroke> keys{
        {u"azahar"_s, f11},      {u"cemu"_s, f11},    {u"dolphin"_s, altReturn},
        {u"duckstation"_s, f11}, {u"flycast"_s, f11}, {u"mgba"_s, {Qt::Key_F, Qt::ControlModifier}},
        {u"pcsx2"_s, altReturn}, {u"ppsspp"_s, f11},  {u"retroarch"_s, {Qt::Key_F}},
        {u"rpcs3"_s, altReturn}, {u"shadps4"_s, f11}, {u"xemu"_s, f11},
    };
    const auto key = keys.constFind(engine);
    return key == keys.constEnd() ? std::nullopt : std::optional(*key);
}

// mGBA 0.10 hides its bar only when it goes to full screen by its own command, or starts a game there.
bool keepsItsMenuBar(const QString &engine)
{
    return engine == "mgba"_L1;
}

std::optional<MenuEntry> fullScreenEntry(const QList<MenuEntry> &menu)
{
    const auto titled = [&](const auto &fits) -> std::optional<MenuEntry> {
        for (const MenuEntry &entry : menu) {
            const QString title = entry.title.toLower().replace("fullscreen"_L1, "full screen"_L1);
            if (entry.enabled && entry.pressable && fits(title)) return entry;
        }
        return {};
    };
    for (const QString &wanted : {u"enter full screen"_s, u"toggle full screen"_s}) {
        if (const auto entry = titled([&](const QString &title) { return title.contains(wanted); })) return entry;
    }
    return titled([](const QString &title) { return title == "full screen"_L1; });
}
