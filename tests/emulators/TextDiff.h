#pragma once

#include <QByteArray>
#include <QList>
#include <string>

/// The lines of `before` that are gone ("-…") and of `after` that are new ("+…"), in order; one change to a line.
inline std::string textDiff(const QByteArray &before, const QByteArray &after)
{
    const QList<QByteArray> old = before.split('\n'), present = after.split('\n');
    QList<QList<int>> common(old.size() + 1, QList<int>(present.size() + 1, 0));
    for (qsizetype i = old.size() - 1; i >= 0; --i) {
        for (qsizetype j = present.size() - 1; j >= 0; --j) {
            common[i][j] =
                old[i] == present[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
        }
    }
    std::string diff;
    qsizetype i = 0, j = 0;
    while (i < old.size() || j < present.size()) {
        if (i < old.size() && j < present.size() && old[i] == present[j]) {
            ++i, ++j;
        } else if (j == present.size() || (i < old.size() && common[i + 1][j] >= common[i][j + 1])) {
            diff += "-" + old[i++].toStdString() + "\n";
        } else {
            diff += "+" + present[j++].toStdString() + "\n";
        }
    }
    return diff;
}
