#include "ui/images/ConsoleHue.h"

using namespace Qt::StringLiterals;

const QHash<QString, int> &consoleHues()
{
    static const QHash<QString, int> hues{
        {u"a2600"_s, 24},  {u"a5200"_s, 28},    {u"nes"_s, 0},     {u"sms"_s, 172},    {u"a7800"_s, 32},
        {u"tg16"_s, 286},  {u"genesis"_s, 176}, {u"tgcd"_s, 294},  {u"gb"_s, 84},      {u"lynx"_s, 36},
        {u"snes"_s, 352},  {u"gg"_s, 168},      {u"cdi"_s, 312},   {u"segacd"_s, 180}, {u"jaguar"_s, 20},
        {u"32x"_s, 192},   {u"saturn"_s, 184},  {u"ps1"_s, 214},   {u"vb"_s, 4},       {u"jaguarcd"_s, 26},
        {u"n64"_s, 8},     {u"gbc"_s, 290},     {u"dc"_s, 188},    {u"ps2"_s, 226},    {u"gba"_s, 336},
        {u"gc"_s, 264},    {u"xbox"_s, 134},    {u"nds"_s, 320},   {u"psp"_s, 202},    {u"x360"_s, 128},
        {u"wii"_s, 196},   {u"ps3"_s, 238},     {u"3ds"_s, 344},   {u"wiiu"_s, 206},   {u"ps4"_s, 250},
        {u"switch"_s, 12}, {u"switch2"_s, 16},  {u"native"_s, 42},
    };
    return hues;
}

int consoleHue(const QString &consoleID)
{
    return consoleHues().value(consoleID, 220);
}

QColor hueColor(int hue, double saturation, double lightness, double alpha)
{
    return QColor::fromHslF(float(hue / 360.0), float(saturation), float(lightness), float(alpha));
}
