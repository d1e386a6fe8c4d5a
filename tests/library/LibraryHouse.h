#pragma once

#include "library/LibraryFile.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"

#include "fakes/FakeFileIndex.h"
#include "fakes/FakeGameLauncher.h"
#include "fakes/FakeProcessControl.h"
#include "fakes/FakeTasks.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/ManualClock.h"
#include "fakes/TemporaryHome.h"

/// A library store with all that it needs, in a temporary home.
struct LibraryHouse {
    TemporaryHome home;
    Places places = home.places();
    Preferences preferences{places.preferencesFile()};
    ManualClock clock;
    FakeTasks tasks;
    FakeFileIndex index;
    FakeWorkspace workspace;
    FakeProcessControl processes;
    FakeGameLauncher launcher;
    std::unique_ptr<LibraryStore> store;

    LibraryHouse() { tasks.immediate = true; }

    LibraryStore &open()
    {
        store.reset();
        store =
            std::make_unique<LibraryStore>(places, preferences, clock, tasks, index, workspace, processes, launcher);
        return *store;
    }
    QString file(const QString &name) const { return places.dataFolder() + u'/' + name; }
    QStringList dataFiles() const
    {
        return QDir(places.dataFolder()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    }
    QByteArray readFile(const QString &name) const
    {
        QFile in(file(name));
        return in.open(QFile::ReadOnly) ? in.readAll() : QByteArray();
    }
    void writeFile(const QString &name, const QByteArray &content) const
    {
        home.write(QDir(home.path()).relativeFilePath(file(name)), content);
    }
    /// What a store that starts now would see.
    QList<GameEntry> onDisk() const
    {
        return decodeLibrary(readFile(QStringLiteral("library.json"))).value_or(QList<GameEntry>());
    }
};

/// A game whose file exists.
inline GameEntry existingGame(const LibraryHouse &house, const QString &name)
{
    GameEntry game;
    game.id = newGameID();
    game.title = name;
    game.consoleID = QStringLiteral("gb");
    game.path = house.home.write(QStringLiteral("Roms/") + name + QStringLiteral(".gb"));
    return game;
}
