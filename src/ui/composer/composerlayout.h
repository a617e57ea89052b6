// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/composer/composerrules.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// ComposerRules for QML. Lengths are in device-independent pixels.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ComposerLayout : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The maximum height of the composer, and whether it shows pictures.
    Q_PROPERTY(
        double availableHeight READ availableHeight WRITE setAvailableHeight NOTIFY heightsChanged)
    Q_PROPERTY(bool hasThumbnails READ hasThumbnails WRITE setHasThumbnails NOTIFY heightsChanged)
    Q_PROPERTY(double editorMinHeight READ editorMinHeight CONSTANT)
    Q_PROPERTY(double editorVerticalPadding READ editorVerticalPadding CONSTANT)
    Q_PROPERTY(double stripSpacing READ stripSpacing CONSTANT)
    /// The height at which the editor begins to scroll.
    Q_PROPERTY(double editorMaxHeight READ editorMaxHeight NOTIFY heightsChanged)
    Q_PROPERTY(double stripHeight READ stripHeight NOTIFY heightsChanged)
    /// The last applied height of the text; 0 before the first.
    Q_PROPERTY(double measuredHeight READ measuredHeight NOTIFY measuredHeightChanged)
    Q_PROPERTY(double editorHeight READ editorHeight NOTIFY measuredHeightChanged)

public:
    explicit ComposerLayout(QObject *parent = nullptr);

    double availableHeight() const { return m_availableHeight; }
    void setAvailableHeight(double height);
    bool hasThumbnails() const { return m_hasThumbnails; }
    void setHasThumbnails(bool hasThumbnails);
    double editorMinHeight() const { return m_rules.editorMinHeight; }
    double editorVerticalPadding() const { return m_rules.editorVerticalPadding; }
    double stripSpacing() const { return ComposerRules::stripSpacing; }
    double editorMaxHeight() const { return heights().editor; }
    double stripHeight() const { return heights().strip; }
    double measuredHeight() const { return m_measuredHeight; }
    double editorHeight() const { return m_rules.editorHeight(m_measuredHeight); }

    /// Sets the height of the text with its padding. It is applied in the next iteration of the
    /// event loop, because a running layout must not change.
    Q_INVOKABLE void setTextHeight(double height);
    /// The radius of the bar for a height of the editor, which may be animated.
    Q_INVOKABLE double cornerRadius(double height) const { return m_rules.cornerRadius(height); }

Q_SIGNALS:
    void heightsChanged();
    void measuredHeightChanged();

private:
    ComposerRules::Heights heights() const
    {
        return m_rules.fit(m_availableHeight, m_hasThumbnails);
    }
    void scheduleUpdate();
    void update();

    const ComposerRules m_rules;
    double m_availableHeight = 10'000;
    bool m_hasThumbnails = false;
    double m_textHeight = 0;
    double m_measuredHeight = 0;
    bool m_isScheduled = false;
};

} // namespace tolvane
