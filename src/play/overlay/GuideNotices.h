#pragma once

#include "platform/Clock.h"
#include "play/overlay/GuideHUD.h"

#include <QObject>
#include <optional>

/// The notice over the game: one at a time, a new one takes the place of the old. Only a countdown keeps a timer.
class GuideNotices : public QObject {
    Q_OBJECT
public:
    explicit GuideNotices(Clock &clock, QObject *parent = nullptr) : QObject(parent), m_clock(clock) { }

    const std::optional<GuideHUD> &hud() const { return m_hud; }
    bool shows(int hudToken) const { return m_hud && hudToken == m_hudToken; } ///< that showing is still there
    Message text() const; ///< of the notice, as it reads now; empty without one
    bool hasCountedDown() const; ///< to 0

    /// Answers the number of this showing. It goes after `time`; without one it stays until it is hidden.
    int show(GuideHUD hud, std::optional<std::chrono::milliseconds> time = {});
    int show(const GuideToast &toast);
    void hide();
    void hide(int hudToken); ///< only that showing, when it is still there

signals:
    void changed();

private:
    Clock &m_clock;
    std::optional<GuideHUD> m_hud;
    int m_hudToken = 0;
    Timer m_end;
    Timer m_countdown;
};
