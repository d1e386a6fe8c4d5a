#include "catalog/KnownBios.h"

using namespace Qt::StringLiterals;

const QList<KnownBios> &knownBiosFiles()
{
    // clang-format off
    static const QList<KnownBios> files{
        {u"a5200"_s, "281f20ea4320404ec820fb7ec0693b38", u"5200.rom"_s, u"Atari 5200 BIOS"_s},
        {u"tgcd"_s, "38179df8f4ac870017db21ebcbf53114", u"syscard3.pce"_s, u"Super CD-ROM² System Card 3.0 (Japan)"_s},
        {u"lynx"_s, "fcd403db69f54290b51035d82f835e7b", u"lynxboot.img"_s, u"Lynx boot ROM"_s},
        {u"segacd"_s, "854b9150240a198070150e4566ae1290", u"bios_CD_U.bin"_s, u"Sega CD BIOS (America)"_s},
        {u"segacd"_s, "2efd74e3232ff260e371b99f84024f7f", u"bios_CD_U.bin"_s, u"Sega CD BIOS (America)"_s},
        {u"segacd"_s, "e66fa1dc5820d254611fdcdba0662372", u"bios_CD_E.bin"_s, u"Mega-CD BIOS (Europe)"_s},
        {u"segacd"_s, "278a9397d192149e84e820ac621a8edd", u"bios_CD_J.bin"_s, u"Mega-CD BIOS (Japan)"_s},
        {u"saturn"_s, "85ec9ca47d8f6807718151cbcca8b964", u"sega_101.bin"_s, u"Saturn BIOS 1.01 (Japan)"_s},
        {u"saturn"_s, "3240872c70984b6cbfda1586cab68dbe", u"mpr-17933.bin"_s, u"Saturn BIOS 1.00 (America, Europe)"_s},
        {u"ps1"_s, "239665b1a3dade1b5a52c06338011044", u"scph1000.bin"_s, u"SCPH-1000 (Japan)"_s},
        {u"ps1"_s, "924e392ed05558ffdb115408c263dccf", u"scph1001.bin"_s, u"SCPH-1001 (America)"_s},
        {u"ps1"_s, "e2110b8a2b97a8e0b857a45d32f7e187", u"scph1002.bin"_s, u"SCPH-1002 (Europe)"_s},
        {u"ps1"_s, "8dd7d5296a650fac7319bce665a6a53c", u"scph5500.bin"_s, u"SCPH-5500 (Japan)"_s},
        {u"ps1"_s, "490f666e1afb15b7362b406ed1cea246", u"scph5501.bin"_s, u"SCPH-5501 (America)"_s},
        {u"ps1"_s, "32736f17079d0b2b7024407c39bd3050", u"scph5502.bin"_s, u"SCPH-5502 (Europe)"_s},
        {u"ps1"_s, "8e4c14f567745eff2f0408c8129f72a6", u"scph7000.bin"_s, u"SCPH-7000 (Japan)"_s},
        {u"ps1"_s, "1e68c231d0896b7eadcad1d7d8e76129", u"scph7001.bin"_s, u"SCPH-7001 (America)"_s},
        {u"ps1"_s, "b9d9a0286c33dc6b7237bb13cd46fdee", u"scph7002.bin"_s, u"SCPH-7002 (Europe)"_s},
        {u"ps1"_s, "6e3735ff4c7dc899ee98981385f6f3d0", u"scph101.bin"_s, u"SCPH-101 (America)"_s},
        {u"ps1"_s, "de93caec13d1a141a40a79f5c86168d6", u"scph102.bin"_s, u"SCPH-102 (Europe)"_s},
        {u"dc"_s, "e10c53c2f8b90bab96ead2d368858623", u"dc_boot.bin"_s, u"Dreamcast BIOS"_s},
        {u"xbox"_s, "d49c52a4102f6df7bcf8d0617ac475ed", u"mcpx_1.0.bin"_s, u"MCPX Boot ROM 1.0"_s},
        {u"xbox"_s, "196a5f59a13382c185636e691d6c323d", u"mcpx_1.0.bin"_s, u"MCPX Boot ROM 1.0"_s, true},
    };
    // clang-format on
    return files;
}

const KnownBios *knownBios(const QByteArray &md5)
{
    for (const KnownBios &file : knownBiosFiles()) {
        if (file.md5 == md5) return &file;
    }
    return nullptr;
}
