#include "ui/CopyText.h"

using namespace Qt::StringLiterals;

QString copyText(ApplicationKind kind)
{
    switch (kind) {
    case ApplicationKind::native:
    case ApplicationKind::bundle:
        return u"Installed"_s;
    case ApplicationKind::appImage:
        return u"AppImage"_s;
    case ApplicationKind::flatpak:
        return u"Flatpak"_s;
    }
    return {};
}

QString fromHome(const QString &path, const Places &places)
{
    return path.startsWith(places.home + u'/') ? u'~' + path.mid(places.home.size()) : path;
}
