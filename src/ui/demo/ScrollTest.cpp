#include "ui/demo/ScrollTest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

static QQuickItem *listOfCovers(QQuickItem *item)
{
    if (item->inherits("QQuickGridView") && item->isVisible() && item->property("count").toInt() > 0) return item;
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = listOfCovers(child)) return found;
    }
    return nullptr;
}

static qint64 nanoseconds()
{
    static QElapsedTimer timer = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return timer.nsecsElapsed();
}

ScrollTest::ScrollTest(QQuickWindow *window, double pixelsPerFrame, int frames)
    : QObject(window), m_window(window), m_view(listOfCovers(window->contentItem())), m_step(pixelsPerFrame),
      m_frames(frames)
{
    if (!m_view) qFatal("There is no list of covers in sight.");
    connect(window, &QQuickWindow::frameSwapped, this, &ScrollTest::nextFrame, Qt::QueuedConnection);
    m_last = nanoseconds();
    nextFrame();
}

void ScrollTest::nextFrame()
{
    const qint64 now = nanoseconds();
    m_times += double(now - m_last) / 1e6;
    m_last = now;
    if (m_times.size() > m_frames) return report();
    m_view->setProperty("contentY", m_view->property("contentY").toDouble() + m_step);
    m_window->update();
}

void ScrollTest::report()
{
    m_times.removeFirst();
    std::sort(m_times.begin(), m_times.end());
    const auto share = [this](double part) { return m_times[int(double(m_times.size() - 1) * part)]; };
    std::printf("frames %d, median %.1f ms, p95 %.1f ms, p99 %.1f ms, longest %.1f ms, over 33 ms: %d\n",
                int(m_times.size()), share(0.5), share(0.95), share(0.99), m_times.last(),
                int(std::count_if(m_times.begin(), m_times.end(), [](double time) { return time > 33; })));
    QCoreApplication::quit();
}
