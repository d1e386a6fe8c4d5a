#pragma once

#include <QList>
#include <QString>

/// Manufacturers, in the order of the "By maker" groups.
enum class Maker { nintendo, sony, sega, microsoft, atari, nec, philips, other };

const QList<Maker> &makers(); ///< all of them, in their order
QString displayName(Maker maker);
