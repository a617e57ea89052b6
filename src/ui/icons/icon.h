// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// One of the library's icons, drawn for the pixels that it takes on the screen: in one colour, or
/// in its own where it has several. Decoration: what it stands for has to be said by whoever uses
/// it.
class Icon : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// The name of a file in src/resources/icons, without its ending; those that keep their colours
    /// are in the folder "colored". Of any other name, nothing is shown, and there is a warning.
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
    bool m_isKnown = false;
    /// What is to be seen; null for nothing.
    QImage m_image;
};

} // namespace tolvane
