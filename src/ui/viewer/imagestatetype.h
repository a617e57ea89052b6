// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/motion/springvalue.h"
#include "ui/viewer/imagestate.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// Zoom and pan of a picture, for QML: gestures go in, and what is to be seen comes out. What a
/// finger does is seen at once, what is left to the picture swings there. A step touches nothing
/// but a few numbers. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ImageStateType : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ImageState)
    /// The room that the picture has, in points.
    Q_PROPERTY(QSizeF geometry READ geometry WRITE setGeometry NOTIFY geometryChanged)
    /// Where zoom and pan are, or are on the way to.
    Q_PROPERTY(double scale READ scale NOTIFY changed)
    Q_PROPERTY(QPointF offset READ offset NOTIFY changed)
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY changed)
    Q_PROPERTY(bool isZoomedIn READ isZoomedIn NOTIFY changed)
    /// Where they are seen.
    Q_PROPERTY(double shownScale READ shownScale NOTIFY shownChanged)
    Q_PROPERTY(QPointF shownOffset READ shownOffset NOTIFY shownChanged)
    /// In points.
    Q_PROPERTY(double leastDragDistance READ leastDragDistance CONSTANT)

public:
    explicit ImageStateType(QObject *parent = nullptr);

    QSizeF geometry() const { return m_geometry; }
    void setGeometry(const QSizeF &geometry);
    double scale() const { return m_state.scale; }
    QPointF offset() const { return {m_state.offset.width(), m_state.offset.height()}; }
    bool isDragging() const { return m_state.isDragging; }
    bool isZoomedIn() const { return m_state.scale > 1; }
    double shownScale() const { return m_scale.value(); }
    QPointF shownOffset() const { return {m_x.value(), m_y.value()}; }
    double leastDragDistance() const { return ImageState::leastDragDistance; }

    /// See ImageState.
    Q_INVOKABLE void pinchChanged(double value);
    Q_INVOKABLE void pinchEnded();
    Q_INVOKABLE void dragChanged(const QPointF &translation);
    Q_INVOKABLE void dragEnded();
    Q_INVOKABLE void doubleTapped();
    Q_INVOKABLE void reset();

    /// What is not done by fingers: a step of a pinch that swings, until pinchEnded(), and a whole
    /// drag, seen at once or swinging. Such drags are not heeded while there is one by hand.
    Q_INVOKABLE void pinchStepped(double value);
    Q_INVOKABLE void pan(const QPointF &translation) { dragWhole(Way::atOnce, translation); }
    Q_INVOKABLE void swingBy(const QPointF &translation) { dragWhole(Way::swinging, translation); }

Q_SIGNALS:
    void geometryChanged();
    void changed();
    void shownChanged();

private:
    enum class Way { atOnce, swinging };

    template <typename Change>
    void change(Way way, Change change);
    void dragWhole(Way way, const QPointF &translation);

    QSizeF m_geometry = {0, 0};
    ImageState m_state;
    SpringValue m_scale;
    SpringValue m_x;
    SpringValue m_y;
};

} // namespace tolvane
