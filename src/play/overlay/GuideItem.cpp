#include "play/overlay/GuideItem.h"

#include "play/RunningGame.h"

using namespace Qt::StringLiterals;

QList<GuideItem> guideItems()
{
    using enum GuideItem;
    return {resume, saveState, loadState, screenshot, info, settings, library, quit};
}

QString title(GuideItem item)
{
    switch (item) {
    case GuideItem::resume:
        return u"Resume"_s;
    case GuideItem::saveState:
        return u"Save state"_s;
    case GuideItem::loadState:
        return u"Load state"_s;
    case GuideItem::screenshot:
        return u"Screenshot"_s;
    case GuideItem::info:
        return u"Game info"_s;
    case GuideItem::settings:
        return u"Settings"_s;
    case GuideItem::library:
        return u"Back to Velko"_s;
    case GuideItem::quit:
        return u"Quit game"_s;
    }
    return {};
}

Message subtitle(GuideItem item, const RunningGame &game, const Message &aboutStates)
{
    switch (item) {
    case GuideItem::resume:
        return game.isNative() ? Message{u"Back to the game"_s, {}} : Message{u"Back to the game in %@"_s, {game.name}};
    case GuideItem::saveState:
    case GuideItem::loadState:
        return aboutStates;
    case GuideItem::screenshot:
        return {u"Saved in Pictures → Velko"_s, {}};
    case GuideItem::info:
        return {u"Play time, file, emulator"_s, {}};
    case GuideItem::settings:
        return {u"Applied the next time you play"_s, {}};
    case GuideItem::library:
        return {u"The game stays paused until you go back to it"_s, {}};
    case GuideItem::quit:
        return {u"Closes %@"_s, {game.name}};
    }
    return {};
}
