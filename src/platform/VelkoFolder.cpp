#include "platform/VelkoFolder.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

QString velkoFolder(const Places &places, const Preferences &preferences)
{
    return velkoFolder(places, preferences.get(preference::velkoFolder));
}

QString velkoFolder(const Places &places, const QString &chosen)
{
    if (!chosen.isEmpty()) return chosen;
    const QString earlier = places.home + u"/VelkoEmu"_s;
    return QFileInfo(earlier).isDir() ? earlier : places.home + u"/Velko"_s;
}
