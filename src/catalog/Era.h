#pragma once

#include <QList>
#include <QString>

/// The era filter of the Consoles screen, in its order.
enum class Era { all, early, nineties, twoKs, tens };

const QList<Era> &eras();
QString displayText(Era era); ///< in English
bool admits(Era era, int year);
