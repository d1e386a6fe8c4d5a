#include "catalog/Era.h"

using namespace Qt::StringLiterals;

const QList<Era> &eras()
{
    static const QList<Era> all{Era::all, Era::early, Era::nineties, Era::twoKs, Era::tens};
    return all;
}

QString displayText(Era era)
{
    switch (era) {
    case Era::all:
        return u"All"_s;
    case Era::early:
        return u"1970s–80s"_s;
    case Era::nineties:
        return u"1990s"_s;
    case Era::twoKs:
        return u"2000s"_s;
    case Era::tens:
        return u"2010s"_s;
    }
    return {};
}

bool admits(Era era, int year)
{
    switch (era) {
    case Era::all:
        return true;
    case Era::early:
        return year < 1990;
    case Era::nineties:
        return year >= 1990 && year < 2000;
    case Era::twoKs:
        return year >= 2000 && year < 2010;
    case Era::tens:
        return year >= 2010;
    }
    return false;
}
