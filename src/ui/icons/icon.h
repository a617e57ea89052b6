// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// One of the library's icons, rendered at the resolution of the screen, in `color` or in colours
/// of its own. Screen readers ignore it: the item that uses it must have an accessible name.
class Icon : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// The name of a file in src/resources/icons, without its suffix. Icons with colours of their
    /// own are in the folder "colored". Other names log a warning and show nothing.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit Icon(QQuickItem *parent = nullptr);

    const QString &name() const { return m_name; }
    void setName(const QString &name);
    const QColor &color() const { return m_color; }
    void setColor(const QColor &color);

Q_SIGNALS:
    void nameChanged();
    void colorChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QString m_name;
    QColor m_color = Qt::black;
    bool m_exists = false;
    /// The rendered icon; null if nothing is shown.
    QImage m_image;
};

} // namespace tolvane
