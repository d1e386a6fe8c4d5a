#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

/// Scrolls the first list of covers in a window by so many pixels a frame, as fast as it can draw, then prints how long
/// the frames took and ends the program.
class ScrollTest : public QObject {
public:
    ScrollTest(QQuickWindow *window, double pixelsPerFrame, int frames);

private:
    void nextFrame();
    void report();

    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_view;
    double m_step;
    int m_frames;
    qint64 m_last = 0; ///< when the last frame was done, in ns
    QList<double> m_times; ///< in ms
};
