#pragma once

#include "platform/Clock.h"
#include "play/ControllerHint.h"
#include "play/GameReach.h"
#include "play/RunningGame.h"

#include <QObject>

class Preferences;

/// "Controller not responding?" over the game, for a while, when the presses of its player say so.
class GuideHint : public QObject {
    Q_OBJECT
public:
    GuideHint(const GameReach &reach, const Preferences &preferences, QObject *parent = nullptr);

    bool visible() const { return m_visible; }
    void begin(); ///< another game starts
    void pressed(const RunningGame &game);
    void hide();

signals:
    void changed();

private:
    GameReach m_reach;
    const Preferences &m_preferences;
    ControllerHint m_judge;
    bool m_visible = false;
    Timer m_end;
};
