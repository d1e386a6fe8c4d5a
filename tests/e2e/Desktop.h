#pragma once

#include <QImage>
#include <QRect>
#include <memory>
#include <optional>

struct xcb_connection_t;

/// A window that the window manager shows.
struct DesktopWindow {
    quint32 id = 0;
    qint64 pid = 0; ///< 0: not told
    QString title;
    QRect place; ///< on the screen
    bool fullScreen = false;
};

/// What a person at the display could see and do: windows, pictures, closing a window.
class Desktop {
public:
    explicit Desktop(const QByteArray &display);
    ~Desktop();
    Desktop(const Desktop &) = delete;

    bool isOpen() const;
    bool hasWindowManager() const;
    QSize size() const;
    QList<DesktopWindow> windows() const; ///< in the order in which they appeared
    std::optional<DesktopWindow> active() const; ///< the one that has the keyboard
    QList<DesktopWindow> unmanaged() const; ///< shown over all others, unknown to the window manager; the lowest first
    void close(quint32 window); ///< asks politely, as the window's close button does
    QImage picture() const; ///< the whole screen

private:
    quint32 atom(const char *name) const;
    QByteArray property(quint32 window, const char *name) const;
    QList<quint32> numbers(quint32 window, const char *name) const;
    DesktopWindow described(quint32 window) const;

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t *)> m_connection;
    quint32 m_root = 0;
    QSize m_size;
};
