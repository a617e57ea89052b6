// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/composer/composerrules.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The rules of the composer, for QML: what was measured goes in, heights come out. Lengths are in
/// points.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ComposerLayout : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// How high the composer may get, and whether there are pictures to show.
    Q_PROPERTY(
        double availableHeight READ availableHeight WRITE setAvailableHeight NOTIFY roomChanged)
    Q_PROPERTY(bool hasStrip READ hasStrip WRITE setHasStrip NOTIFY roomChanged)
    Q_PROPERTY(double editorMinHeight READ editorMinHeight CONSTANT)
    Q_PROPERTY(double editorVerticalPadding READ editorVerticalPadding CONSTANT)
    Q_PROPERTY(double stripSpacing READ stripSpacing CONSTANT)
    /// Where the editor begins to scroll.
    Q_PROPERTY(double editorMaxHeight READ editorMaxHeight NOTIFY roomChanged)
    Q_PROPERTY(double stripHeight READ stripHeight NOTIFY roomChanged)
    /// Of the text, as last taken over; 0 before.
    Q_PROPERTY(double measuredHeight READ measuredHeight NOTIFY measuredHeightChanged)
    Q_PROPERTY(double editorHeight READ editorHeight NOTIFY measuredHeightChanged)

public:
    explicit ComposerLayout(QObject *parent = nullptr);

    double availableHeight() const { return m_availableHeight; }
    void setAvailableHeight(double height);
    bool hasStrip() const { return m_hasStrip; }
    void setHasStrip(bool hasStrip);
    double editorMinHeight() const { return m_rules.editorMinHeight; }
    double editorVerticalPadding() const { return m_rules.editorVerticalPadding; }
    double stripSpacing() const { return ComposerRules::stripSpacing; }
    double editorMaxHeight() const { return room().editor; }
    double stripHeight() const { return room().strip; }
    double measuredHeight() const { return m_measuredHeight; }
    double editorHeight() const { return m_rules.editorHeight(m_measuredHeight); }

    /// Takes in the height of the text with its padding. What follows from it comes with the next
    /// turn of the event loop: a layout that is under way is not to be changed.
    Q_INVOKABLE void measure(double height);
    /// Of the bar, for a height of the editor on its way from one to another.
    Q_INVOKABLE double cornerRadius(double height) const { return m_rules.cornerRadius(height); }

Q_SIGNALS:
    void roomChanged();
    void measuredHeightChanged();

private:
    ComposerRules::Room room() const { return m_rules.fit(m_availableHeight, m_hasStrip); }
    void scheduleUpdate();
    void update();

    const ComposerRules m_rules;
    double m_availableHeight = 10'000;
    bool m_hasStrip = false;
    double m_textHeight = 0;
    double m_measuredHeight = 0;
    bool m_isScheduled = false;
};

} // namespace tolvane
