#pragma once

#include <functional>
#include <memory>

class Clock;
class ControllerInput;
class InstalledEmulators;
class LibraryStore;
class LocalSockets;
class Preferences;
class ProcessControl;
class ScreenshotStore;
class Tasks;
class Translator;
class Workspace;
struct Places;
struct VelkoFront;

/// What playing needs of the rest of the program. All of it outlives the session.
struct GameSessionParts {
    const Places &places;
    Clock &clock;
    Tasks &tasks;
    Workspace &workspace;
    ProcessControl &processes;
    LocalSockets &sockets;
    Preferences &preferences;
    const Translator &translator;
    const InstalledEmulators &emulators;
    LibraryStore &library;
    ScreenshotStore &pictures;
    ControllerInput &controller;
};

/// Everything there is for the game that runs: the services that reach its windows, who watches over it, and what lies
/// over it. Built when it is first needed: a program that only lists games does without.
class GameSession {
public:
    GameSession(const GameSessionParts &parts, VelkoFront front);
    ~GameSession();

    int displays() const; ///< how many are connected
    bool isEnding() const; ///< a game is being ended still, though it no longer counts as running
    void onChanged(std::function<void()> changed); ///< of `isEnding`
    bool panelIsShown() const; ///< the menu over the game, as the desktop says
    /// One of our own windows, in front of the others whatever program has the keyboard.
    void activate(unsigned long long window);

private:
    struct Content;
    std::unique_ptr<Content> m_content;
};
