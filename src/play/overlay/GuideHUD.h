#pragma once

#include "base/Message.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <chrono>

/// A small notice at the top right of the game's display.
struct GuideHUD {
    Message text;
    QString icon; ///< name of a symbol
    QString combo; ///< in place of the icon: "guide" draws View and Menu
    bool busy = false; ///< in place of both: something is being waited for
    QDateTime since; ///< when the countdown began
    std::chrono::seconds forceAfter{0}; ///< above 0: the text's "%ld" counts down from it
    Message detail; ///< a second line; empty: none
    bool operator==(const GuideHUD &) const = default;
};

/// What is left of the countdown, never below 0.
qint64 secondsLeft(const GuideHUD &hud, const QDateTime &now);
/// The text as it reads now.
Message countedDown(const GuideHUD &hud, const QDateTime &now);

/// What the panel answers to a choice, or the game's notice says when the panel is closed.
struct GuideToast {
    Message text;
    QString symbol;
    bool operator==(const GuideToast &) const = default;
};
