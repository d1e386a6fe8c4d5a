#pragma once

#include <QList>
#include <QString>

/// The main window's tabs, in the order of the tab bar.
enum class AppTab { home, games, consoles, essentials, profile, social };

const QList<AppTab> &appTabs();
QString name(AppTab tab); ///< "home", …: how QML knows it
QString title(AppTab tab); ///< "Home", …: in English
