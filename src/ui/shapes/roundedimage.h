// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundeditem.h"

namespace tolvane {

/// An item that draws a decoded picture, optionally with rounded corners. Scaling down is smooth.
/// The implicit size is one device-independent pixel for each pixel of the picture.
class RoundedImage : public tolvane::RoundedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(tolvane::RoundedImage::FillMode fillMode READ fillMode WRITE setFillMode NOTIFY
                   appearanceChanged)
    /// Draws the largest circle in the middle, and ignores the radius.
    Q_PROPERTY(bool circle READ isCircle WRITE setCircle NOTIFY appearanceChanged)

public:
    enum FillMode { Stretch, Fit, Fill };
    Q_ENUM(FillMode)

    explicit RoundedImage(QQuickItem *parent = nullptr)
        : RoundedItem(parent)
    {
    }

    const QImage &image() const { return m_image; }
    void setImage(const QImage &image);
    FillMode fillMode() const { return m_fillMode; }
    void setFillMode(FillMode mode) { change(m_fillMode, mode); }
    using RoundedItem::isCircle;
    using RoundedItem::setCircle;

Q_SIGNALS:
    void imageChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QImage m_image;
    FillMode m_fillMode = Stretch;
};

} // namespace tolvane
