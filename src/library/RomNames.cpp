#include "library/RomNames.h"

#include <QHash>
#include <QList>
#include <QPair>

using namespace Qt::StringLiterals;

/// In the order of the search: a longer name stands before the shorter one that it contains.
static const QList<QPair<QString, QString>> &hints()
{
    // clang-format off
    static const QList<QPair<QString, QString>> all{
        {u"playstation 4"_s, u"ps4"_s}, {u"playstation 3"_s, u"ps3"_s}, {u"playstation 2"_s, u"ps2"_s},
        {u"playstation portable"_s, u"psp"_s}, {u"playstation"_s, u"ps1"_s}, {u"game boy advance"_s, u"gba"_s},
        {u"game boy color"_s, u"gbc"_s}, {u"game boy"_s, u"gb"_s}, {u"gamecube"_s, u"gc"_s}, {u"wii u"_s, u"wiiu"_s},
        {u"mega drive"_s, u"genesis"_s}, {u"megadrive"_s, u"genesis"_s}, {u"genesis"_s, u"genesis"_s},
        {u"mega cd"_s, u"segacd"_s}, {u"megacd"_s, u"segacd"_s}, {u"sega cd"_s, u"segacd"_s},
        {u"master system"_s, u"sms"_s}, {u"game gear"_s, u"gg"_s}, {u"dreamcast"_s, u"dc"_s}, {u"saturn"_s, u"saturn"_s},
        {u"nintendo 64"_s, u"n64"_s}, {u"super nintendo"_s, u"snes"_s}, {u"virtual boy"_s, u"vb"_s},
        {u"turbografx cd"_s, u"tgcd"_s}, {u"pc engine cd"_s, u"tgcd"_s}, {u"turbografx"_s, u"tg16"_s},
        {u"pc engine"_s, u"tg16"_s}, {u"nintendo ds"_s, u"nds"_s}, {u"3ds"_s, u"3ds"_s}, {u"xbox"_s, u"xbox"_s},
        {u"ps4"_s, u"ps4"_s}, {u"ps3"_s, u"ps3"_s}, {u"ps2"_s, u"ps2"_s}, {u"psx"_s, u"ps1"_s}, {u"ps1"_s, u"ps1"_s},
        {u"psp"_s, u"psp"_s}, {u"gba"_s, u"gba"_s}, {u"gbc"_s, u"gbc"_s}, {u"gb"_s, u"gb"_s}, {u"ngc"_s, u"gc"_s},
        {u"gc"_s, u"gc"_s}, {u"wiiu"_s, u"wiiu"_s}, {u"wii"_s, u"wii"_s}, {u"n64"_s, u"n64"_s}, {u"snes"_s, u"snes"_s},
        {u"sfc"_s, u"snes"_s}, {u"nes"_s, u"nes"_s}, {u"famicom"_s, u"nes"_s}, {u"nds"_s, u"nds"_s}, {u"ds"_s, u"nds"_s},
        {u"md"_s, u"genesis"_s}, {u"sms"_s, u"sms"_s}, {u"gg"_s, u"gg"_s}, {u"dc"_s, u"dc"_s}, {u"32x"_s, u"32x"_s},
        {u"lynx"_s, u"lynx"_s}, {u"jaguar"_s, u"jaguar"_s}, {u"2600"_s, u"a2600"_s}, {u"5200"_s, u"a5200"_s},
        {u"7800"_s, u"a7800"_s},
    };
    // clang-format on
    return all;
}

/// Lower case, one blank between words and at both ends; everything but letters and digits divides words.
static QString padded(const QString &name)
{
    QString words(u' ');
    for (const char32_t c : name.toLower().toUcs4()) {
        if (QChar::isLetterOrNumber(c))
            words += QChar::fromUcs4(c);
        else if (!words.endsWith(u' '))
            words += u' ';
    }
    if (!words.endsWith(u' ')) words += u' ';
    return words;
}

std::optional<QString> hintForFolder(const QString &name)
{
    const QString words = padded(name);
    for (const auto &[hint, console] : hints()) {
        const qsizetype at = words.indexOf(hint);
        if (at > 0 && words.contains(u' ' + hint + u' ')) return console;
    }
    return {};
}

QString cleanTitle(const QString &name)
{
    QString title;
    title.reserve(name.size());
    for (qsizetype i = 0; i < name.size(); ++i) {
        const QChar c = name[i];
        const QChar closing = c == u'[' ? u']' : c == u'(' ? u')' : QChar();
        const qsizetype end = closing.isNull() ? -1 : name.indexOf(closing, i + 1);
        if (end >= 0) i = end;
        title += end >= 0 ? QChar(u' ') : c;
    }
    return title.simplified();
}

bool isForNativeGames(const QString &folderName)
{
    const QString words = padded(folderName);
    return words == " native "_L1 || words.contains(" native ports "_L1) || words.contains(" native games "_L1);
}
