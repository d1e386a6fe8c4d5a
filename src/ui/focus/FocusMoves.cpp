#include "ui/focus/FocusMoves.h"

#include <QLineF>

/// Turned so that every direction is "to the right".
static QRectF turned(const QRectF &r, Direction direction)
{
    switch (direction) {
    case Direction::right:
        return r;
    case Direction::left:
        return {-r.right(), r.top(), r.width(), r.height()};
    case Direction::down:
        return {r.top(), r.left(), r.height(), r.width()};
    case Direction::up:
        return {-r.bottom(), r.left(), r.height(), r.width()};
    }
    return r;
}

/// How far `to` lies from `from`, looking to the right; nothing when it does not lie there.
static std::optional<double> distance(const QRectF &from, const QRectF &to)
{
    if (to.center().x() <= from.center().x() || to.right() <= from.right()) return {};
    const double ahead = qMax(0.0, to.left() - from.right());
    const double aside = qMax(0.0, qMax(to.top() - from.bottom(), from.top() - to.bottom()));
    const double offset = qMin(qAbs(to.center().y() - from.center().y()), qAbs(to.top() - from.top()));
    // What lies beside is far: the next row's nearest end comes before the same row's other page.
    return aside > 0 ? 1e6 + ahead + 4 * aside : ahead + offset / 1000;
}

std::optional<int> nextInDirection(const QRectF &from, const QList<QRectF> &others, Direction direction)
{
    std::optional<int> best;
    double least = 0;
    const QRectF start = turned(from, direction);
    for (int i = 0; i < others.size(); ++i) {
        const auto far = distance(start, turned(others[i], direction));
        if (!far || (best && *far >= least)) continue;
        best = i;
        least = *far;
    }
    return best;
}

std::optional<int> nearest(const QRectF &from, const QList<QRectF> &others)
{
    std::optional<int> best;
    double least = 0;
    for (int i = 0; i < others.size(); ++i) {
        const double far = QLineF(from.center(), others[i].center()).length();
        if (best && far >= least) continue;
        best = i;
        least = far;
    }
    return best;
}
