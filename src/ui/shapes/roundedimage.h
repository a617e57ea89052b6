// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedshape.h"

#include <QtGui/QImage>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// An item that draws a decoded picture, optionally with rounded corners. Scaling down is smooth.
/// The implicit size is one device-independent pixel for each pixel of the picture.
class RoundedImage : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(FillMode fillMode READ fillMode WRITE setFillMode NOTIFY appearanceChanged)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY appearanceChanged)
    Q_PROPERTY(Corners corners READ corners WRITE setCorners NOTIFY appearanceChanged)
    Q_PROPERTY(bool circle READ isCircle WRITE setCircle NOTIFY appearanceChanged)

public:
    enum FillMode { Stretch, Fit, Fill };
    Q_ENUM(FillMode)

    enum Corner {
        TopLeft = 1,
        TopRight = 2,
        BottomLeft = 4,
        BottomRight = 8,
        AllCorners = TopLeft | TopRight | BottomLeft | BottomRight,
    };
    Q_DECLARE_FLAGS(Corners, Corner)
    Q_FLAG(Corners)

    explicit RoundedImage(QQuickItem *parent = nullptr);

    const QImage &image() const { return m_image; }
    void setImage(const QImage &image);
    FillMode fillMode() const { return m_fillMode; }
    void setFillMode(FillMode mode);
    /// In pixels.
    qreal radius() const { return m_rounding.radius; }
    void setRadius(qreal radius);
    /// The corners that the radius applies to; all by default.
    Corners corners() const { return Corners(m_rounding.corners); }
    void setCorners(Corners corners);
    /// Draws the largest circle in the middle, whatever the radius.
    bool isCircle() const { return m_rounding.isCircle; }
    void setCircle(bool isCircle);

Q_SIGNALS:
    void imageChanged();
    void appearanceChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    template <typename Value>
    void change(Value &member, const Value &value);

    QImage m_image;
    FillMode m_fillMode = Stretch;
    Rounding m_rounding{.radius = 0, .corners = AllCorners, .isCircle = false};
};

} // namespace tolvane
