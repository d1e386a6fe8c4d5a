#include "app/AppTab.h"

using namespace Qt::StringLiterals;

const QList<AppTab> &appTabs()
{
    static const QList<AppTab> tabs{AppTab::home,       AppTab::games,   AppTab::consoles,
                                    AppTab::essentials, AppTab::profile, AppTab::social};
    return tabs;
}

QString name(AppTab tab)
{
    return title(tab).toLower();
}

QString title(AppTab tab)
{
    switch (tab) {
    case AppTab::home:
        return u"Home"_s;
    case AppTab::games:
        return u"Games"_s;
    case AppTab::consoles:
        return u"Consoles"_s;
    case AppTab::essentials:
        return u"Essentials"_s;
    case AppTab::profile:
        return u"Profile"_s;
    case AppTab::social:
        return u"Social"_s;
    }
    return {};
}
