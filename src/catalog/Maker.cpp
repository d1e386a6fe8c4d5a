#include "catalog/Maker.h"

using namespace Qt::StringLiterals;

const QList<Maker> &makers()
{
    static const QList<Maker> all{Maker::nintendo, Maker::sony, Maker::sega,    Maker::microsoft,
                                  Maker::atari,    Maker::nec,  Maker::philips, Maker::other};
    return all;
}

QString displayName(Maker maker)
{
    switch (maker) {
    case Maker::nintendo:
        return u"Nintendo"_s;
    case Maker::sony:
        return u"Sony"_s;
    case Maker::sega:
        return u"Sega"_s;
    case Maker::microsoft:
        return u"Microsoft"_s;
    case Maker::atari:
        return u"Atari"_s;
    case Maker::nec:
        return u"NEC"_s;
    case Maker::philips:
        return u"Philips"_s;
    case Maker::other:
        return u"Mac"_s; // its only console is the one of games that are programs themselves
    }
    return {};
}
