#include "play/states/SaveStatePolicy.h"

#include "catalog/EmulatorDef.h"

#include <QHash>

using namespace Qt::StringLiterals;

using Kind = SaveStatePolicy::Kind;

static bool isNative(const QString &engine)
{
    return engine == "native"_L1 || engine == "nxnative"_L1;
}

static Kind kindOf(const QString &engine, Host host, bool keysBound)
{
    if (isNative(engine)) return Kind::none;
    if (engine == "ppsspp"_L1 && !keysBound) return Kind::keyboardMenu;
    if (shortcutPair(engine, host) || keysBound) return Kind::shortcut;
    // xemu is asked over its socket on Linux. Flycast's menu opens with View, like the others'.
    if (engine == "xemu"_L1 && host == Host::linux) return Kind::shortcut;
    if (engine == "flycast"_L1 && host == Host::linux) return Kind::ownMenu;
    if (engine == "xemu"_L1 || engine == "rpcs3"_L1 || engine == "ppsspp"_L1) return Kind::ownMenu;
    if (engine == "cemu"_L1 || engine == "shadps4"_L1) return Kind::unavailable;
    return Kind::menuSearch;
}

static QString subtitleOf(Kind kind)
{
    switch (kind) {
    case Kind::none:
        return u"Native game: save from the game's own menu"_s;
    case Kind::keyboardMenu:
        return u"Press Esc on the keyboard: %@'s menu"_s;
    case Kind::shortcut:
        return u"Quick slot 1"_s;
    case Kind::ownMenu:
        return u"Use %@'s own menu"_s;
    case Kind::unavailable:
        return u"Not available with %@"_s;
    case Kind::menuSearch:
        return u"Through %@'s menu"_s;
    }
    return {};
}

static QString explanationOf(Kind kind)
{
    switch (kind) {
    case Kind::none:
        return u"This game runs natively, without an emulator: there are no save states. Save from the game's own menu, like on the console."_s;
    case Kind::keyboardMenu:
        return u"%@ has its own save states: press Esc on your keyboard during the game to open its menu, then Save state / Load state."_s;
    case Kind::ownMenu:
        return u"%@ has its own menu for save states: it opens with the same buttons (View + Menu). Save and load from there."_s;
    case Kind::unavailable:
        return u"%@ has no save states Velko can reach."_s;
    case Kind::shortcut:
    case Kind::menuSearch:
        break;
    }
    return {};
}

static Message named(const QString &text, const QString &name)
{
    return {text, text.contains("%@"_L1) ? QStringList{name} : QStringList()};
}

SaveStatePolicy saveStatePolicy(const QString &engine, Host host, bool keysBound)
{
    const EmulatorDef *def = emulatorWithID(engine, host);
    const QString name = def ? def->name : engine;
    const Kind kind = kindOf(engine, host, keysBound);
    return {kind, named(subtitleOf(kind), name), named(explanationOf(kind), name)};
}

std::optional<StateKeys> shortcutPair(const QString &engine, Host host)
{
    static const StateKeys shiftF1{{Qt::Key_F1, Qt::ShiftModifier}, {Qt::Key_F1}};
    static const QHash<QString, StateKeys> mac{
        {u"pcsx2"_s, {{Qt::Key_F1}, {Qt::Key_F3}}},
        {u"ppsspp"_s, {{Qt::Key_F2}, {Qt::Key_F4}}},
        {u"duckstation"_s, {{Qt::Key_F2}, {Qt::Key_F1}}},
        {u"dolphin"_s, shiftF1},
        {u"mgba"_s, shiftF1},
        {u"melonds"_s, shiftF1},
        {u"openemu"_s, {{Qt::Key_S, Qt::ControlModifier}, {Qt::Key_L, Qt::ControlModifier}}},
    };
    // PPSSPP's keys were those of its Qt program, which is gone.
    static const QHash<QString, StateKeys> linux{
        {u"pcsx2"_s, {{Qt::Key_F1}, {Qt::Key_F3}}},
        {u"duckstation"_s, {{Qt::Key_F2}, {Qt::Key_F1}}},
        {u"dolphin"_s, shiftF1},
        {u"mgba"_s, shiftF1},
        {u"melonds"_s, shiftF1},
        {u"retroarch"_s, {{Qt::Key_F2}, {Qt::Key_F4}}},
    };
    const auto &pairs = host == Host::mac ? mac : linux;
    const auto found = pairs.constFind(engine);
    return found == pairs.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<StateKeys> keysBesideMenus(const QString &engine, Host host)
{
    // To its oldest slot, from its newest.
    if (engine == "azahar"_L1 && host == Host::linux)
        return StateKeys{{Qt::Key_C, Qt::ControlModifier}, {Qt::Key_V, Qt::ControlModifier}};
    return {};
}

MacKey macKey(const KeyStroke &stroke)
{
    static const QHash<int, int> codes{{Qt::Key_F1, 122}, {Qt::Key_F2, 120}, {Qt::Key_F3, 99},
                                       {Qt::Key_F4, 118}, {Qt::Key_S, 1},    {Qt::Key_L, 37}};
    MacKey key{codes.value(stroke.key)};
    if (stroke.modifiers & Qt::ShiftModifier) {
        key.flags |= 0x20000;
        key.modifierCodes += 56;
    }
    if (stroke.modifiers & Qt::ControlModifier) {
        key.flags |= 0x100000;
        key.modifierCodes += 55;
    }
    return key;
}

QList<StateWay> stateWays(const QString &engine, Host host, bool keysBound)
{
    const Kind kind = kindOf(engine, host, keysBound);
    if (kind == Kind::menuSearch)
        return keysBesideMenus(engine, host) ? QList{StateWay::menu, StateWay::key} : QList{StateWay::menu};
    if (kind != Kind::shortcut) return {};
    if (host == Host::mac) return {StateWay::key};
    if (engine == "xemu"_L1) return {StateWay::interface};
    if (engine == "retroarch"_L1) return {StateWay::interface, StateWay::key};
    if (engine == "pcsx2"_L1) return {StateWay::interface, StateWay::key, StateWay::menu};
    if (engine == "ppsspp"_L1 || engine == "flycast"_L1) return {StateWay::key};
    // A key is quicker than a menu, but needs the keyboard to be with the game.
    return {StateWay::key, StateWay::menu};
}

QStringList stateTitles(StateCommand command, const QString &engine, Host host)
{
    const bool save = command == StateCommand::save;
    // mGBA's "Save state" asks for a slot on the screen; its "Quick save" is a menu of slots.
    if (engine == "mgba"_L1 && host == Host::linux)
        return save ? QStringList{u"quick save"_s, u"sauvegarde rapide"_s}
                    : QStringList{u"quick load"_s, u"chargement rapide"_s};
    if (save)
        return {u"save state"_s,         u"savestate"_s,         u"quick save"_s,          u"save to oldest"_s,
                u"sauvegarder l'état"_s, u"sauvegarde rapide"_s, u"créer une sauvegarde"_s};
    return {
        u"load state"_s,        u"load savestate"_s,        u"quick load"_s, u"load from newest"_s, u"charger l'état"_s,
        u"chargement rapide"_s, u"charger une sauvegarde"_s};
}

QStringList menusToOpen(StateCommand command, const QString &engine)
{
    if (engine != "duckstation"_L1 && engine != "pcsx2"_L1) return {};
    return {command == StateCommand::save ? u"save state"_s : u"load state"_s};
}

bool loadsStateAtStart(const QString &engine, Host host)
{
    static const QStringList both{u"pcsx2"_s, u"duckstation"_s, u"dolphin"_s, u"mgba"_s};
    static const QStringList linux{u"ppsspp"_s, u"retroarch"_s, u"flycast"_s, u"rpcs3"_s};
    return both.contains(engine) || (host == Host::linux && linux.contains(engine));
}
