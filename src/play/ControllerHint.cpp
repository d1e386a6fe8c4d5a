#include "play/ControllerHint.h"

using namespace std::chrono_literals;

bool ControllerHint::pressed(const PressInGame &press)
{
    constexpr int enough = 3;
    if (isJudged(press.pid) || press.played <= 3s) return false;
    const bool doubtful = press.played < 120s && press.setUpByHand;
    if (doubtful && ++m_hintPresses < enough) return false;
    m_hintPresses = 0;
    m_hintDone.insert(press.pid);
    return doubtful;
}
