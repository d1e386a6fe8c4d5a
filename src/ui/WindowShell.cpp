#include "ui/WindowShell.h"

#include "ui/Renderer.h"
#include "ui/StartBlocks.h"

using namespace Qt::StringLiterals;

/// The renderer is chosen before the first window is made.
static QWindow *onChosenRenderer()
{
    chooseRenderer();
    return nullptr;
}

WindowShell::WindowShell() : QQuickWindow(onChosenRenderer())
{
    setTitle(u"Velko"_s);
    setColor(QColor(0x0c, 0x0e, 0x14));
    setMinimumSize({720, 480});
    resize(1440, 900);
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
