#pragma once

#include <QQuickItem>
#include <QRectF>

struct StartBlock {
    QRectF place;
    int radius;
};

/// The main window's outline before there is content: the top bar, and Home's hero, cards and first shelf where its
/// page puts them.
QList<StartBlock> startBlocks(QSizeF window, bool games);

/// Draws that outline.
class StartBlocks final : public QQuickItem {
public:
    StartBlocks(bool games, QQuickItem *parent);

protected:
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *data) override;

private:
    bool m_games;
};
