#pragma once

#include "base/Host.h"
#include "base/Message.h"
#include "platform/Keys.h"

#include <QList>
#include <QStringList>
#include <optional>

/// What can be done about save states of a game that runs.
struct SaveStatePolicy {
    enum class Kind {
        none, ///< the game is itself a program
        keyboardMenu, ///< the emulator's menu, opened by a key
        shortcut, ///< Velko saves and loads, in slot 1
        ownMenu, ///< the emulator's menu, opened by the controller
        unavailable,
        menuSearch, ///< Velko saves and loads by an entry of the emulator's menus
    };
    Kind kind = Kind::none;
    Message subtitle; ///< of both items of the overlay
    Message explanation; ///< shown instead of acting; empty when Velko acts
    bool acts() const { return kind == Kind::shortcut || kind == Kind::menuSearch; }
    bool operator==(const SaveStatePolicy &) const = default;
};

/// `keysBound`: the user has given keys for states to an emulator that has none of its own.
SaveStatePolicy saveStatePolicy(const QString &engine, Host host, bool keysBound = false);

struct StateKeys {
    KeyStroke save;
    KeyStroke load;
    bool operator==(const StateKeys &) const = default;
};

/// The emulator's keys for its quick state, as it comes. On the Mac, Qt's Control is the Command key.
std::optional<StateKeys> shortcutPair(const QString &engine, Host host);

/// Keys of an emulator that is reached by its menus, for where menus cannot be reached.
std::optional<StateKeys> keysBesideMenus(const QString &engine, Host host);

/// A key as macOS numbers it.
struct MacKey {
    int code = 0;
    quint32 flags = 0; ///< of the event
    QList<int> modifierCodes; ///< keys that are pressed before it
    bool operator==(const MacKey &) const = default;
};
MacKey macKey(const KeyStroke &stroke); ///< of the keys of `shortcutPair`; code 0: none of them

enum class StateCommand { save, load };

/// How Velko reaches the emulator's own command.
enum class StateWay {
    interface, ///< its socket or port
    key,
    menu,
};

/// The ways that an emulator knows, in the order in which they are tried; empty where Velko does not act.
QList<StateWay> stateWays(const QString &engine, Host host, bool keysBound = false);

/// What the entry of the menus is called, in lower case, the best first.
QStringList stateTitles(StateCommand command, const QString &engine, Host host);

/// Menus of this emulator that must be opened before their entries exist, in lower case.
QStringList menusToOpen(StateCommand command, const QString &engine);

/// Whether the emulator resumes from a state at its start, so that nothing has to be done after it.
bool loadsStateAtStart(const QString &engine, Host host);
