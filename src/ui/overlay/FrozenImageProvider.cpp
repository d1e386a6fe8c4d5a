#include "ui/overlay/FrozenImageProvider.h"

#include "play/overlay/GuideOverlay.h"

QImage FrozenImageProvider::requestImage(const QString &, QSize *size, const QSize &)
{
    *size = m_guide.picture().size();
    return m_guide.picture();
}
