#include "app/AppState.h"

#include <QVariant>

void AppState::setTab(AppTab tab)
{
    if (tab == m_tab) return;
    m_tab = tab;
    setProperty("detailGame", QString());
    setProperty("selectedConsole", QString());
    emit tabChanged();
}

void AppState::setTabName(const QString &tab)
{
    for (const AppTab candidate : appTabs()) {
        if (name(candidate) == tab) return setTab(candidate);
    }
}

void AppState::stepTab(int by)
{
    const auto place = appTabs().indexOf(m_tab) + by;
    if (place >= 0 && place < appTabs().size()) setTab(appTabs()[place]);
}
