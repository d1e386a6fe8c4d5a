#pragma once

#include "platform/Places.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A home folder of its own for one test; gone with it.
class TemporaryHome {
public:
    QString path() const { return m_folder.path(); }
    Places places() const
    {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("PATH"), path() + QStringLiteral("/bin"));
        environment.insert(QStringLiteral("XDG_DATA_DIRS"), path() + QStringLiteral("/usr/share"));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), path() + QStringLiteral("/run"));
        Places places = linuxPlaces(path(), environment);
        places.dataDirs.removeIf([this](const QString &folder) { return !folder.startsWith(path()); });
        places.programDirs.removeIf([this](const QString &folder) { return !folder.startsWith(path()); });
        places.applicationDirs = {path() + QStringLiteral("/opt")};
        places.libraryDirs = {path() + QStringLiteral("/usr/lib")};
        return places;
    }
    Places macPlaces() const
    {
        Places places = ::macPlaces(path());
        places.applicationDirs = {path() + QStringLiteral("/system/Applications")};
        return places;
    }

    /// Writes a file below the home, with its folders; answers its absolute path.
    QString write(const QString &name, const QByteArray &content = "x") const
    {
        const QString file = path() + u'/' + name;
        QDir().mkpath(QFileInfo(file).path());
        QFile out(file);
        if (!out.open(QFile::WriteOnly) || out.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(file));
        return file;
    }
    QByteArray read(const QString &name) const
    {
        QFile in(path() + u'/' + name);
        return in.open(QFile::ReadOnly) ? in.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_folder;
};
