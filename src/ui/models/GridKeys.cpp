#include "ui/models/GridKeys.h"

#include <QMetaMethod>
#include <QVariant>
#include <algorithm>
#include <cstdlib>
#include <optional>

static std::optional<Move> moveOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return Move::left;
    case Qt::Key_Right:
        return Move::right;
    case Qt::Key_Up:
        return Move::up;
    case Qt::Key_Down:
        return Move::down;
    case Qt::Key_Home:
        return Move::first;
    case Qt::Key_End:
        return Move::last;
    case Qt::Key_PageUp:
        return Move::pageUp;
    case Qt::Key_PageDown:
        return Move::pageDown;
    }
    return {};
}

static bool isArrow(Move move)
{
    return move == Move::left || move == Move::right || move == Move::up || move == Move::down;
}

TileLayout GridKeys::layout() const
{
    TileLayout layout{m_groups, std::max(1, m_columns)};
    layout.groups.removeIf([](int tiles) { return tiles <= 0; });
    return layout;
}

bool GridKeys::press(int key, int modifiers, const QString &text)
{
    constexpr int allowed = Qt::ShiftModifier | Qt::KeypadModifier;
    if (modifiers & ~allowed) return false;
    if (const auto wanted = moveOf(key)) return move(*wanted);
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (m_current >= 0) emit opened();
        return true;
    }
    if (key == Qt::Key_F) {
        if (m_current >= 0) emit favoriteToggled();
        return true;
    }
    const bool printable = !text.isEmpty() && text.front().isPrint() && !text.front().isSpace();
    if (printable) emit typed(text);
    return printable;
}

bool GridKeys::leaveUpwards()
{
    const bool heard = isSignalConnected(QMetaMethod::fromSignal(&GridKeys::upOut));
    emit upOut();
    return heard;
}

bool GridKeys::move(Move move)
{
    const TileLayout grid = layout();
    if (grid.groups.isEmpty()) return false;
    const int target = m_current < 0 ? 0 : tileAfter(grid, m_current, move, std::max(1, m_page));
    if (target == m_current) return !isArrow(move) || (move == Move::up && leaveUpwards());
    const int lines = std::abs(placeOf(grid, target).line - placeOf(grid, std::max(0, m_current)).line);
    setProperty("far", lines > m_page);
    emit moved(target);
    return true;
}
