#include "play/overlay/GamePicture.h"

#include <QPainter>

using namespace std::chrono_literals;

static constexpr auto redrawn = 50ms; // a game has drawn anew what lay below a notice

/// Without a desktop that composes windows nobody has what is below, so it takes the colours around it. In a darkened
/// picture that is enough.
static void fillIn(QImage &picture, const QRect &place)
{
    const QRect hole = place & picture.rect();
    if (hole.isEmpty() || hole.height() >= picture.height()) return;
    const int above = hole.top() > 0 ? hole.top() - 1 : hole.bottom() + 1;
    const int below = hole.bottom() + 1 < picture.height() ? hole.bottom() + 1 : above;
    QImage edges(hole.width(), 2, QImage::Format_RGB32);
    QPainter(&edges).drawImage(0, 0, picture, hole.left(), above, hole.width(), 1);
    QPainter(&edges).drawImage(0, 1, picture, hole.left(), below, hole.width(), 1);
    const QSize blurred(qMax(1, hole.width() / 24), 2);
    edges = edges.scaled(blurred, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter(&picture).drawImage(hole.topLeft(),
                                 edges.scaled(hole.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void GamePicture::noticeComes(const QRect &place)
{
    m_notice = place;
    m_noticeGone.reset();
}

bool GamePicture::isCovered()
{
    if (m_noticeGone && m_clock.awake() - *m_noticeGone > redrawn) m_notice = {};
    return !m_notice.isEmpty();
}

QImage GamePicture::take(const QRect &display, const std::optional<AppWindow> &game)
{
    const bool covered = isCovered();
    const bool own = covered && game && m_windows.isComposed(); // of each window, also where it is covered
    QImage picture;
    if (!own || !game->geometry.contains(display)) picture = m_capture.screen(display);
    if (picture.isNull()) return game ? m_capture.window(game->id) : QImage();
    if (own)
        QPainter(&picture).drawImage(game->geometry.topLeft() - display.topLeft(), m_capture.window(game->id));
    else if (covered)
        fillIn(picture, m_notice.translated(-display.topLeft()));
    return picture;
}
