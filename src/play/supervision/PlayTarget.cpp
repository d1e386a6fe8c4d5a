#include "play/supervision/PlayTarget.h"

#include <algorithm>

template <class Test>
static int indexWhere(const QList<Monitor> &displays, Test test)
{
    const auto found = std::ranges::find_if(displays, test);
    return found == displays.end() ? -1 : int(found - displays.begin());
}

QString chooseDisplay(const QList<Monitor> &displays, const QString &preferred, const QRect &activeWindow)
{
    int index = indexWhere(displays, [&](const Monitor &each) { return each.name == preferred; });
    if (index < 0 && activeWindow.isValid())
        index =
            indexWhere(displays, [&](const Monitor &each) { return each.geometry.contains(activeWindow.center()); });
    if (index < 0) index = indexWhere(displays, &Monitor::primary);
    return displays.value(std::max(index, 0)).name;
}

PlayTarget playTarget(const QList<Monitor> &displays, const QString &name)
{
    const int index = indexWhere(displays, [&](const Monitor &each) { return each.name == name; });
    if (index >= 0 && displays.size() >= 2) return {displays[index], index, false};
    const int primary = std::max(indexWhere(displays, &Monitor::primary), 0);
    return {displays.value(primary), primary, true};
}
