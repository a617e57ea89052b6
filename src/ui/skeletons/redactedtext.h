// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// The placeholder of a text: bars with the lengths of its lines. It measures the text without
/// painting it, and in a font that other views show: each further font takes a millisecond.
class RedactedText : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY changed)
    Q_PROPERTY(int pixelSize MEMBER m_pixelSize NOTIFY changed)
    Q_PROPERTY(bool isBold MEMBER m_isBold NOTIFY changed)
    Q_PROPERTY(int maximumLineCount MEMBER m_maximumLineCount NOTIFY changed)
    Q_PROPERTY(QColor tint MEMBER m_tint NOTIFY changed)

public:
    explicit RedactedText(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void changed();

protected:
    void componentComplete() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void layOut();

    QString m_text;
    int m_pixelSize = 0;
    bool m_isBold = false;
    int m_maximumLineCount = 1;
    QColor m_tint;
};

} // namespace tolvane
