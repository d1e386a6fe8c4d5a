#include "ui/window/WindowShell.h"

#include "ui/window/Renderer.h"
#include "ui/window/StartBlocks.h"

#include <QScreen>

using namespace Qt::StringLiterals;

/// The renderer is chosen before the first window is made.
static QWindow *onChosenRenderer()
{
    chooseRenderer();
    return nullptr;
}

/// On a screen that is too small for the window and its frame it fills the screen.
static void fit(QWindow &window)
{
    const QSize wanted(1440, 900), frame(16, 48);
    const QSize room = window.screen()->availableSize();
    const QSize size = wanted.boundedTo(room - frame);
    window.resize(size);
    if (size != wanted) window.setWindowStates(Qt::WindowMaximized);
}

WindowShell::WindowShell() : QQuickWindow(onChosenRenderer())
{
    setTitle(u"Velko"_s);
    setColor(QColor(0x0c, 0x0e, 0x14));
    setMinimumSize({720, 480});
    fit(*this);
}

void WindowShell::showBlocks(Waiting waiting)
{
    m_blocks = new StartBlocks(waiting == Waiting::forGames, contentItem());
    fill(m_blocks);
    setVisible(true);
    requestActivate();
}

void WindowShell::setContent(QQuickItem *content)
{
    m_content = content;
    fill(content);
    content->setParentItem(contentItem());
    delete m_blocks;
}

void WindowShell::resizeEvent(QResizeEvent *event)
{
    QQuickWindow::resizeEvent(event);
    fill(m_blocks);
    fill(m_content);
}

void WindowShell::fill(QQuickItem *item) const
{
    if (item) item->setSize(size());
}
