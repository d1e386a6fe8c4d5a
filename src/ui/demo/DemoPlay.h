#pragma once

#include <QImage>
#include <QString>
#include <memory>

class Clock;
class InstalledEmulators;
class LibraryStore;
class Preferences;
class Tasks;
class Translator;
struct FakeProcessControl;
class FakeWorkspace;
struct Places;

/// A game that seems to run, with Velko's surfaces over it.
class DemoPlay {
public:
    struct House {
        const Places &places;
        Clock &clock;
        Tasks &tasks;
        Preferences &preferences;
        LibraryStore &library;
        const InstalledEmulators &emulators;
        FakeWorkspace &workspace;
        FakeProcessControl &processes;
        const Translator &translator;
    };
    explicit DemoPlay(const House &house);
    ~DemoPlay();

    /// `scene`: "overlay", "info", "settings", "controller", "confirm", "notice", "question", "quit-question",
    /// "closing", "screenshot", "state", "hint" or "curtain". `picture` stands for what the game shows.
    void show(const QString &gameID, const QString &engine, const QString &scene, const QImage &picture);
    QImage grab() const; ///< what stands on the display: the game with what lies over it

private:
    struct Stage;
    std::unique_ptr<Stage> m_stage;
};
