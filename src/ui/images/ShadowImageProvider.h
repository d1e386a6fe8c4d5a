#pragma once

#include <QQuickImageProvider>

/// `image://shadow/<radius>/<blur>/<alpha in percent>`: the shadow of a rounded card for a `BorderImage`, whose borders
/// are radius + 2 blur wide and which reaches `blur` beyond the card on every side. With "/<height>" behind it, it is
/// for a card of this height, too low for that: only left and right have borders. A picture, since the software
/// renderer draws nothing where QML asks for an effect.
class ShadowImageProvider final : public QQuickImageProvider {
public:
    ShadowImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) { }
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};
