#pragma once

#include "platform/Endpoints.h"

#include <memory>

class AppState;
class BiosFiles;
class Clock;
class ControllerInput;
class EmulatorChanges;
class FramePatches;
class InstalledEmulators;
class LibraryStore;
class Preferences;
class QQuickWindow;
class ScreenshotStore;
class Tasks;
class Translator;
class WindowShell;
class Workspace;
struct Places;

/// What the window shows and acts on. All of it outlives the window.
struct WindowParts {
    AppState &app;
    LibraryStore &library;
    ScreenshotStore &screenshots;
    InstalledEmulators &emulators;
    BiosFiles &bios;
    EmulatorChanges &changes;
    Preferences &preferences;
    Translator &translator;
    Clock &clock;
    Tasks &tasks;
    Workspace &workspace;
    const Places &places;
    ControllerInput &controller; ///< its ordinary events go to this window
    FramePatches *patches = nullptr; ///< absent: nothing is said about 60 FPS patches
    Endpoints endpoints = {}; ///< of our own pages
};

/// The main window.
class VelkoWindow {
public:
    explicit VelkoWindow(WindowParts parts);
    VelkoWindow(WindowParts parts, std::unique_ptr<WindowShell> shell); ///< in that window, or in one of its own
    ~VelkoWindow();

    bool load(); ///< false when the interface is damaged; shows nothing by itself
    QQuickWindow *window();
    void raise(); ///< shows it, in front of other windows
    void hidePointer(); ///< of the mouse, until it moves

private:
    struct Content;
    std::unique_ptr<Content> m_content;
};
