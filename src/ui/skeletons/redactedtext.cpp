// SPDX-License-Identifier: MIT
#include "ui/skeletons/redactedtext.h"

#include "base/lrucache.h"
#include "platform/platform.h"
#include "ui/shapes/roundedrectangle.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QRawFont>
#include <QtGui/QTextLayout>

#include <algorithm>
#include <cmath>

namespace tolvane {

namespace {

/// As anchors centre items: those with an odd length on a whole pixel.
qreal middleOf(qreal length)
{
    return int(length) % 2 ? (int(length) + 1) / 2 : length / 2;
}

struct Lines
{
    int count = 0;
    /// The length of the longest line.
    qreal width = 0;
    qreal height = 0;
};

/// The font of the rows' texts in their usual size. Lengths of texts are proportional to the size.
QFont measuringFont(bool isBold)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(16);
    font.setWeight(isBold ? QFont::DemiBold : QFont::Normal);
    return font;
}

/// A copy in another size needs no search for a font.
qreal lineHeight(const QFont &font, int pixelSize)
{
    QRawFont raw = QRawFont::fromFont(font);
    raw.setPixelSize(pixelSize);
    return std::ceil(raw.ascent() + raw.descent());
}

Lines measured(const QString &text, const QFont &font, int pixelSize, int maximumCount, qreal width)
{
    const qreal scale = qreal(pixelSize) / font.pixelSize();
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    Lines lines{.count = 0, .width = 0, .height = lineHeight(font, pixelSize)};
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (lines.count == maximumCount) {
            lines.width = width; // The last line is elided.
            break;
        }
        line.setLineWidth(width / scale);
        lines.width = std::max(lines.width, line.naturalTextWidth() * scale);
        ++lines.count;
    }
    layout.endLayout();
    return lines;
}

/// The rows of a skeleton have the same texts.
Lines linesOf(const QString &text, bool isBold, int pixelSize, int maximumCount, qreal width)
{
    static auto *known = new LruCache<QString, Lines>({.count = 16});
    const QFont font = measuringFont(isBold);
    const QString key = QStringLiteral("%1 %2 %3 %4 %5 %6")
                            .arg(font.family())
                            .arg(isBold)
                            .arg(pixelSize)
                            .arg(maximumCount)
                            .arg(width)
                            .arg(text);
    if (const Lines *lines = known->object(key))
        return *lines;
    const Lines lines = measured(text, font, pixelSize, maximumCount, width);
    known->insert(key, lines, 1);
    return lines;
}

} // namespace

RedactedText::RedactedText(QQuickItem *parent)
    : QQuickItem(parent)
{
    connect(this, &RedactedText::changed, this, &RedactedText::layOut);
}

void RedactedText::componentComplete()
{
    QQuickItem::componentComplete();
    layOut();
}

void RedactedText::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.width() != oldGeometry.width())
        layOut();
}

void RedactedText::layOut()
{
    constexpr qreal lastOfSeveral = 0.6;
    constexpr qreal partOfLine = 0.75;
    if (!isComponentComplete() || width() <= 0 || m_pixelSize <= 0)
        return;
    const Lines lines = linesOf(m_text, m_isBold, m_pixelSize, m_maximumLineCount, width());
    const bool isMirrored = platform().bundle->layoutDirection() == Qt::RightToLeft;
    const qreal height = lines.height * partOfLine;
    while (childItems().size() < lines.count)
        (new RoundedRectangle(this))->setParent(this);
    for (int at = 0; at < childItems().size(); ++at) {
        auto *bar = static_cast<RoundedRectangle *>(childItems().at(at));
        const bool isShort = lines.count > 1 && at == lines.count - 1;
        bar->setVisible(at < lines.count);
        bar->setSize({std::min(lines.width, width()) * (isShort ? lastOfSeveral : 1), height});
        bar->setPosition({isMirrored ? width() - bar->width() : 0,
                          lines.height * at + middleOf(lines.height) - middleOf(height)});
        bar->setRadius(4);
        bar->setColor(QColor::fromRgbF(m_tint.redF(), m_tint.greenF(), m_tint.blueF(),
                                       m_tint.alphaF() * 0.3F));
    }
    setImplicitHeight(lines.count * lines.height);
}

} // namespace tolvane
