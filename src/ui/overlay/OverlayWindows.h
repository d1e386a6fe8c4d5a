#pragma once

#include <memory>

class Clock;
class GuideOverlay;
class LibraryStore;
class QQuickWindow;
class Tasks;
class Translator;
class Windows;
struct Places;

/// What the surfaces over a game show and act on. All of it outlives them.
struct OverlayWindowParts {
    GuideOverlay &guide;
    const LibraryStore &library;
    Windows &windows;
    Clock &clock;
    Tasks &tasks;
    const Translator &translator;
    const Places &places;
};

/// The three windows over a game: the panel with the menu, the small notice, the curtain. They are built when the first
/// game has started and kept hidden, so that the panel comes at once; hidden, they draw nothing and hold no picture.
class OverlayWindows {
public:
    explicit OverlayWindows(const OverlayWindowParts &parts);
    ~OverlayWindows();

    bool panelIsShown() const; ///< as the desktop says

    /// The windows themselves; null before they are built.
    QQuickWindow *panel() const;
    QQuickWindow *notice() const;
    QQuickWindow *curtain() const;

private:
    class Surfaces;
    std::unique_ptr<Surfaces> m_surfaces;
};
