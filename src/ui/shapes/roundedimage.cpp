// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedimage.h"

namespace tolvane {

void RoundedImage::setImage(const QImage &image)
{
    if (m_image.cacheKey() == image.cacheKey())
        return;
    m_image = image;
    setImplicitSize(image.width(), image.height());
    update();
    Q_EMIT imageChanged();
}

QSGNode *RoundedImage::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    return updateNode(node, m_image, m_image.size(), static_cast<tolvane::FillMode>(m_fillMode));
}

} // namespace tolvane
