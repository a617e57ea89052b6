// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/motion/springvalue.h"
#include "ui/viewer/imagestate.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// Zoom and pan of a picture for QML: handles gestures and provides the values to show. Finger
/// input applies immediately; programmatic changes animate with a spring. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ZoomController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The size of the viewport, in device-independent pixels.
    Q_PROPERTY(QSizeF geometry READ geometry WRITE setGeometry NOTIFY geometryChanged)
    /// The values at the end of a running animation.
    Q_PROPERTY(double scale READ scale NOTIFY changed)
    Q_PROPERTY(QPointF offset READ offset NOTIFY changed)
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY changed)
    Q_PROPERTY(bool isZoomedIn READ isZoomedIn NOTIFY changed)
    /// The values at the current time of the animation.
    Q_PROPERTY(double shownScale READ shownScale NOTIFY shownChanged)
    Q_PROPERTY(QPointF shownOffset READ shownOffset NOTIFY shownChanged)
    /// In device-independent pixels.
    Q_PROPERTY(double minDragDistance READ minDragDistance CONSTANT)

public:
    explicit ZoomController(QObject *parent = nullptr);

    QSizeF geometry() const { return m_geometry; }
    void setGeometry(const QSizeF &geometry);
    double scale() const { return m_state.scale; }
    QPointF offset() const { return {m_state.offset.width(), m_state.offset.height()}; }
    bool isDragging() const { return m_state.isDragging; }
    bool isZoomedIn() const { return m_state.scale > 1; }
    double shownScale() const { return m_scale.value(); }
    QPointF shownOffset() const { return {m_x.value(), m_y.value()}; }
    double minDragDistance() const { return ImageState::minDragDistance; }

    /// See ImageState.
    Q_INVOKABLE void pinchChanged(double value);
    Q_INVOKABLE void pinchEnded();
    Q_INVOKABLE void dragChanged(const QPointF &translation);
    Q_INVOKABLE void dragEnded();
    Q_INVOKABLE void doubleTapped();
    Q_INVOKABLE void reset();
    /// Without an animation, for another picture.
    Q_INVOKABLE void resetImmediately();

    /// For input that is not a finger gesture: pinchAnimated() animates one step of a pinch, until
    /// pinchEnded(); pan() and panAnimated() are whole drags, applied immediately or animated. Such
    /// drags are ignored during a drag gesture.
    Q_INVOKABLE void pinchAnimated(double value);
    Q_INVOKABLE void pan(const QPointF &translation) { applyDrag(Motion::immediate, translation); }
    Q_INVOKABLE void panAnimated(const QPointF &translation)
    {
        applyDrag(Motion::animated, translation);
    }

Q_SIGNALS:
    void geometryChanged();
    void changed();
    void shownChanged();

private:
    enum class Motion { immediate, animated };

    template <typename Change>
    void change(Motion motion, Change change);
    void applyDrag(Motion motion, const QPointF &translation);

    QSizeF m_geometry = {0, 0};
    ImageState m_state;
    SpringValue m_scale;
    SpringValue m_x;
    SpringValue m_y;
};

} // namespace tolvane
