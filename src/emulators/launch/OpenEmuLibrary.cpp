#include "emulators/launch/OpenEmuLibrary.h"

#include <QDirIterator>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString openEmuCopyOf(const QString &gamePath, const QString &home)
{
    const QString name = QFileInfo(gamePath).fileName();
    QDirIterator files(home + u"/Library/Application Support/OpenEmu/Game Library/roms"_s, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        if (files.fileName() == name) return files.filePath();
    }
    return {};
}
