#include "platform/linux/LinuxServices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// Qt 6.4 moves files to "files" in the working folder when the file's disk lets it make no trash.
bool isTrash(const QString &place)
{
    return QDir::isAbsolutePath(place) && place.contains("Trash"_L1);
}

class LinuxTrash final : public Trash {
public:
    Result<QString> move(const QString &path) override
    {
        // Qt makes the trash's own folder, but not the one that it is in.
        QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
        QString place;
        const bool moved = QFile::moveToTrash(path, &place);
        if (moved && isTrash(place)) return place;
        if (moved) QFile::rename(place, path);
        return Message{u"“%@” can't be moved to the Trash. Is it still there, and may its folder be changed?"_s,
                       {QFileInfo(path).fileName()}};
    }
};

}

std::unique_ptr<Trash> makeTrash()
{
    return std::make_unique<LinuxTrash>();
}
