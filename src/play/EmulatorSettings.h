#pragma once

#include "platform/Accessibility.h"
#include "play/GameReach.h"
#include "play/RunningGame.h"

#include "platform/Clock.h"

#include <QObject>
#include <optional>

/// The entry that opens a program's settings: the first title of the list that one contains wins, then their order.
std::optional<MenuEntry> settingsEntry(const QList<MenuEntry> &menu);

/// Opens the running emulator's own settings, through its menu, or by the usual key where its menus can't be reached.
/// The emulator runs and is in front when it is asked for.
class EmulatorSettings : public QObject {
    Q_OBJECT
public:
    explicit EmulatorSettings(const GameReach &reach, QObject *parent = nullptr) : QObject(parent), m_reach(reach) { }
    void open(const RunningGame &game);

private:
    void search(qint64 pid);

    GameReach m_reach;
    Timer m_wait; ///< until the emulator has drawn itself and takes keys
    int m_token = 0; ///< of the latest request: answers to an older one do nothing
};
