#pragma once

#include <QList>
#include <algorithm>

/// The stretch of rows in which two lists differ: what is before and after it is the same in both, so that a view that
/// hears of nothing else keeps its place.
struct RowChange {
    int first = 0;
    int removed = 0; ///< rows of the old list
    int inserted = 0; ///< rows of the new list
};

template <class Row>
RowChange rowChange(const QList<Row> &old, const QList<Row> &now)
{
    const qsizetype shorter = qMin(old.size(), now.size());
    qsizetype first = 0, last = 0;
    while (first < shorter && old[first] == now[first])
        ++first;
    while (last < shorter - first && old[old.size() - 1 - last] == now[now.size() - 1 - last])
        ++last;
    return {int(first), int(old.size() - first - last), int(now.size() - first - last)};
}
