#pragma once

#include "base/Message.h"

#include <QList>

struct RunningGame;

/// What the menu over a game offers, from top to bottom.
enum class GuideItem { resume, saveState, loadState, screenshot, info, settings, library, quit };

QList<GuideItem> guideItems();
QString title(GuideItem item);
/// `aboutStates` is what can be said about this game's save states; both of their items say it.
Message subtitle(GuideItem item, const RunningGame &game, const Message &aboutStates);
