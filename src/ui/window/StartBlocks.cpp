#include "ui/window/StartBlocks.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGNinePatchNode>
#include <algorithm>
#include <cmath>

static constexpr QColor fill(0x1a, 0x1b, 0x21); ///< the theme's quietest fill on its ground
static constexpr int barHeight = 80;

static QList<StartBlock> topBar(qreal width)
{
    const bool narrow = width < 1180;
    const qreal edge = narrow ? 28 : 40;
    const qreal right = width - (narrow ? 20 : 40);
    QList<StartBlock> blocks{{{edge, 25, 30, 30}, 15}, {{right - 44, 18, 44, 44}, 22}};
    if (!narrow) blocks += StartBlock{{right - 44 - 10 - 152, 18, 152, 44}, 22};
    static constexpr qreal tabWidth = 60, tabStep = 102;
    static constexpr int tabs = 6;
    for (int tab = 0; tab < tabs && !narrow; ++tab)
        blocks += StartBlock{{(width - tabs * tabStep) / 2 + tab * tabStep + 21, 33, tabWidth, 14}, 7};
    return blocks;
}

static QList<StartBlock> home(QSizeF window)
{
    const qreal margin = window.width() >= 1600 ? 80 : window.width() >= 1100 ? 48 : 28;
    const qreal width = std::min(1760.0, window.width() - 2 * margin);
    const qreal x = std::floor((window.width() - width) / 2);
    const qreal y = barHeight + 16;
    const bool wide = width >= 1040;
    const qreal heroHeight = window.height() >= 1000 ? 456 : window.height() >= 760 ? 372 : 300;
    const qreal sideWidth = std::floor(std::clamp(width * 0.255, 320.0, 448.0));
    const qreal cardHeight = wide ? (heroHeight - 24) / 2 : 216;
    QList<StartBlock> blocks{{{x, y, wide ? width - sideWidth - 32 : width, heroHeight}, 28}};
    qreal below = y + heroHeight;
    if (wide) {
        blocks += StartBlock{{x + width - sideWidth, y, sideWidth, cardHeight}, 20};
        blocks += StartBlock{{x + width - sideWidth, below - cardHeight, sideWidth, cardHeight}, 20};
    } else {
        blocks += StartBlock{{x, below + 24, width, cardHeight}, 20};
        below += 24 + cardHeight;
    }
    const qreal gap = wide ? 32 : 24;
    const qreal usualWidth = wide ? 192 : 144;
    const qreal columns = std::max(2.0, std::round((width + gap) / (usualWidth + gap)));
    const qreal coverWidth = std::floor((width - gap * (columns - 1)) / columns);
    for (int column = 0; column < columns; ++column)
        blocks += StartBlock{{x + column * (coverWidth + gap), below + 24 + 64, coverWidth, coverWidth * 4 / 3}, 8};
    return blocks;
}

QList<StartBlock> startBlocks(QSizeF window, bool games)
{
    return games ? topBar(window.width()) + home(window) : topBar(window.width());
}

StartBlocks::StartBlocks(bool games, QQuickItem *parent) : QQuickItem(parent), m_games(games)
{
    setFlag(ItemHasContents);
}

static QImage roundedSquare(int radius, qreal scale)
{
    const int side = int(std::ceil((2 * radius + 2) * scale));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(image.rect()), radius * scale, radius * scale);
    return image;
}

QSGNode *StartBlocks::updatePaintNode(QSGNode *old, UpdatePaintNodeData *)
{
    delete old;
    auto *all = new QSGNode;
    const qreal scale = window()->effectiveDevicePixelRatio();
    for (const StartBlock &block : startBlocks(size(), m_games)) {
        QSGNinePatchNode *node = window()->createNinePatchNode();
        node->setTexture(window()->createTextureFromImage(roundedSquare(block.radius, scale)));
        node->setBounds(block.place);
        node->setDevicePixelRatio(scale);
        const qreal edge = block.radius * scale;
        node->setPadding(edge, edge, edge, edge);
        node->update();
        all->appendChildNode(node);
    }
    return all;
}
