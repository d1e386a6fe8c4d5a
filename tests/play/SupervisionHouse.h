#pragma once

#include "play/supervision/GameSupervisor.h"
#include "play/supervision/PlacementLog.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeWindows.h"
#include "library/LibraryHouse.h"

#include <gtest/gtest.h>

inline const Monitor leftDisplay{QStringLiteral("LEFT"), {0, 0, 1920, 1080}, true};
inline const Monitor rightDisplay{QStringLiteral("RIGHT"), {1920, 0, 1920, 1080}, false};

/// A desktop on which a game runs: its program, its window, and who watches over it.
struct SupervisionHouse : testing::Test {
    static constexpr qint64 pid = 500;
    static constexpr quint64 gameWindow = 10, question = 11;

    LibraryHouse house;
    FakeWindows windows;
    FakeAccessibility accessibility;
    FakeKeys keys;
    PlacementLog log{house.places, house.clock, house.tasks};
    LibraryStore &library = house.open();
    GameSupervisor supervisor{{Host::linux, house.clock, windows, accessibility, keys, house.processes, log},
                              library,
                              house.workspace,
                              house.preferences};
    WatchOptions options{.showCurtain = true};
    QStringList told; ///< signals

    SupervisionHouse()
    {
        using S = GameSupervisor;
        QObject::connect(&library, &LibraryStore::gameStarted, &supervisor,
                         [this](const QString &id, const StartedGame &program) {
                             const RunningGame game =
                                 runningGame(id, library.game(id)->title, program, Host::linux, house.clock.now());
                             supervisor.startWatching(game, options);
                         });
        const auto note = [this](const char *what) { return [this, what] { told += QString::fromLatin1(what); }; };
        QObject::connect(&supervisor, &S::curtainWanted,
                         [this](const QString &name) { told += QStringLiteral("curtain ") + name; });
        QObject::connect(&supervisor, &S::curtainDone, note("curtain done"));
        QObject::connect(&supervisor, &S::placed, note("placed"));
        QObject::connect(&supervisor, &S::quitFinished, note("quit finished"));
        QObject::connect(&supervisor, &S::launchCancelled, note("cancelled"));
    }

    void twoDisplays()
    {
        windows.connected = {leftDisplay, rightDisplay};
        house.preferences.set(preference::playDisplay, rightDisplay.name);
    }
    void play(const QString &engine, qint64 program = pid)
    {
        const GameEntry game = existingGame(house, engine + QString::number(program));
        library.add({game});
        library.launch(game.id);
        addProcess(program, 1);
        house.workspace.running.insert(program);
        house.launcher.answer(StartedGame{program, engine, engine, {}});
    }
    void addProcess(qint64 program, qint64 parent)
    {
        house.processes.processes[program] = {program, parent, QStringLiteral("game")};
    }
    void show(quint64 id, const QRect &geometry, qint64 program = pid)
    {
        windows.windows += AppWindow{.id = id, .pid = program, .geometry = geometry};
        windows.becomeActive(id);
    }
    void ask(quint64 id = question, quint64 of = gameWindow, qint64 program = pid)
    {
        windows.windows += AppWindow{.id = id,
                                     .pid = program,
                                     .geometry = {100, 100, 318, 85},
                                     .kind = WindowKind::dialog,
                                     .transientFor = of,
                                     .modal = true};
    }
    const AppWindow &shown(quint64 id = gameWindow) { return *windows.find(id); }

    /// Lets time pass. A program whose window was closed ends, and a program that has ended has no windows.
    void advance(std::chrono::milliseconds time)
    {
        using namespace std::chrono_literals;
        settle();
        for (auto left = time; left > 0ms; left -= 50ms) {
            house.clock.advance(std::min(left, std::chrono::milliseconds(50ms)));
            accessibility.finish();
            settle();
        }
    }
    void end(qint64 program)
    {
        house.processes.processes.erase(program);
        settle();
    }

    /// The placement log without its times.
    QStringList lines() const
    {
        QStringList all = QString::fromUtf8(file()).split(u'\n', Qt::SkipEmptyParts);
        for (QString &line : all)
            line = line.section(QStringLiteral("  "), 1);
        return all;
    }
    QByteArray file() const { return house.home.read(QStringLiteral(".local/state/VelkoEmu/Velko-placement.log")); }

private:
    void settle()
    {
        for (const quint64 closed : std::as_const(windows.closeRequests)) {
            if (!windows.unclosable.contains(closed)) house.processes.processes.erase(pid);
        }
        windows.windows.removeIf([this](const AppWindow &each) { return !house.processes.isAlive(each.pid); });
        if (!windows.find(windows.active)) windows.active = 0;
        const QSet<qint64> running = house.workspace.running;
        for (const qint64 program : running) {
            if (!house.processes.isAlive(program)) house.workspace.end(program);
        }
    }
};
