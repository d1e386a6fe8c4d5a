#pragma once

#include <QList>
#include <QRectF>
#include <optional>

enum class Direction { up, down, left, right };

/// The rectangle that an arrow key reaches from `from`: the nearest one that lies in that direction, sideways distance
/// counting more than distance ahead, and overlapping ones before all others. Its index, or nothing at the edge.
std::optional<int> nextInDirection(const QRectF &from, const QList<QRectF> &others, Direction direction);

/// The rectangle whose middle is nearest: where focus goes when what had it is gone.
std::optional<int> nearest(const QRectF &from, const QList<QRectF> &others);
