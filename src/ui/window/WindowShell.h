#pragma once

#include <QPointer>
#include <QQuickWindow>

/// The main window without its content, which may come later: it shows in still blocks then where the content will
/// stand. That takes no QML, no font and no library, so that the window is there at once.
class WindowShell final : public QQuickWindow {
public:
    enum class Waiting { forGames, forAnything }; ///< for anything: no block claims that there are games

    WindowShell(); ///< hidden, on the renderer chosen for this computer

    void showBlocks(Waiting waiting); ///< and the window itself
    /// It fills the window from now on, in place of the blocks, and remains the caller's.
    void setContent(QQuickItem *content);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void fill(QQuickItem *item) const;

    QPointer<QQuickItem> m_blocks;
    QPointer<QQuickItem> m_content;
};
