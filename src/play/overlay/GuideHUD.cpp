#include "play/overlay/GuideHUD.h"

qint64 secondsLeft(const GuideHUD &hud, const QDateTime &now)
{
    const qint64 passed = qMax<qint64>(0, hud.since.msecsTo(now)) / 1000;
    return qMax<qint64>(0, hud.forceAfter.count() - passed);
}

Message countedDown(const GuideHUD &hud, const QDateTime &now)
{
    return hud.forceAfter.count() > 0 ? Message{hud.text.text, {QString::number(secondsLeft(hud, now))}} : hud.text;
}
