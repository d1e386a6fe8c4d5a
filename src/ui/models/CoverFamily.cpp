#include "ui/models/CoverFamily.h"

#include <QSet>

using namespace Qt::StringLiterals;

CoverFamily coverFamily(const QString &consoleID)
{
    static const QSet<QString> wide{u"snes"_s, u"n64"_s, u"vb"_s};
    static const QSet<QString> square{u"gb"_s, u"gbc"_s,  u"gba"_s,  u"nds"_s,    u"3ds"_s,     u"ps1"_s,
                                      u"dc"_s, u"tg16"_s, u"tgcd"_s, u"switch"_s, u"switch2"_s, u"native"_s};
    if (wide.contains(consoleID)) return CoverFamily::wide;
    return square.contains(consoleID) ? CoverFamily::square : CoverFamily::box;
}

QString name(CoverFamily family)
{
    switch (family) {
    case CoverFamily::box:
        return u"box"_s;
    case CoverFamily::square:
        return u"square"_s;
    case CoverFamily::wide:
        return u"wide"_s;
    }
    return {};
}

double heightRatio(CoverFamily family)
{
    switch (family) {
    case CoverFamily::box:
        return 4.0 / 3;
    case CoverFamily::square:
        return 1;
    case CoverFamily::wide:
        return 3.0 / 4;
    }
    return 1;
}
