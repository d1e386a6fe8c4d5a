#pragma once

#include <QString>
#include <QStringList>

/// How a controller is set up in one emulator, in one line and in English.
QString controllerHint(const QString &emulatorID);

/// The same step by step; a single step where there is nothing to do. For "nxnative" and "native", games that are
/// themselves programs, what there is to know.
QStringList controllerGuide(const QString &emulatorID);
