#pragma once

#include <QString>

/// The copy that OpenEmu keeps of a game in its own library, so that it need not be imported again: the file of the
/// same name in the folder of any console. Empty when there is none. Reads folders: call it in the background.
QString openEmuCopyOf(const QString &gamePath, const QString &home);
