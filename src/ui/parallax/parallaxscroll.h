// SPDX-License-Identifier: MIT
#pragma once

#include "ui/parallax/parallaxrules.h"
#include "ui/shapes/continuouscorner.h"

#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// ParallaxRules for QML.
class ParallaxScroll : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// A ParallaxConfiguration; other values log a warning and are ignored.
    Q_PROPERTY(QVariant configuration READ configuration WRITE setConfiguration NOTIFY layoutChanged
                   REQUIRED)
    Q_PROPERTY(double viewHeight READ viewHeight WRITE setViewHeight NOTIFY layoutChanged)
    Q_PROPERTY(bool isLandscape READ isLandscape WRITE setLandscape NOTIFY layoutChanged)
    Q_PROPERTY(double collapsedHeight READ collapsedHeight NOTIFY layoutChanged)
    Q_PROPERTY(double spacerHeight READ spacerHeight NOTIFY layoutChanged)
    Q_PROPERTY(double sheetHeight READ sheetHeight NOTIFY layoutChanged)
    Q_PROPERTY(QColor headerBackground READ headerBackground NOTIFY layoutChanged)
    Q_PROPERTY(QColor contentBackground READ contentBackground NOTIFY layoutChanged)
    /// These change with the scrolling, too.
    Q_PROPERTY(double offset READ offset NOTIFY scrolled)
    Q_PROPERTY(double headerHeight READ headerHeight NOTIFY scrolled)
    Q_PROPERTY(double contentTop READ contentTop NOTIFY scrolled)
    Q_PROPERTY(State state READ state NOTIFY stateChanged)

public:
    enum State {
        Opened = static_cast<int>(ParallaxScrollState::opened),
        Collapsed = static_cast<int>(ParallaxScrollState::collapsed),
    };
    Q_ENUM(State)

    explicit ParallaxScroll(QObject *parent = nullptr);

    QVariant configuration() const { return QVariant::fromValue(m_rules.configuration()); }
    void setConfiguration(const QVariant &configuration);
    double viewHeight() const { return m_rules.viewHeight(); }
    void setViewHeight(double height);
    bool isLandscape() const { return m_rules.isLandscape(); }
    void setLandscape(bool isLandscape);

    double collapsedHeight() const { return m_rules.collapsedHeight(); }
    double spacerHeight() const { return m_rules.spacerHeight(); }
    double sheetHeight() const { return m_rules.sheetHeight(); }
    QColor headerBackground() const { return m_rules.configuration().headerBackground(); }
    QColor contentBackground() const { return m_rules.configuration().contentBackground(); }
    double offset() const { return m_rules.scrollOffset(); }
    double headerHeight() const { return m_rules.headerHeight(); }
    double contentTop() const { return m_rules.contentTop(); }
    State state() const { return static_cast<State>(m_rules.state()); }

    Q_INVOKABLE void setScrollOffset(double offset);

Q_SIGNALS:
    void layoutChanged();
    void scrolled();
    void stateChanged();

private:
    ParallaxRules m_rules;
};

/// Creates configurations in QML: `Parallax.configuration(Parallax.heights(240, 80), ...)`.
class ParallaxFactory : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Parallax)
    QML_SINGLETON
    Q_PROPERTY(double contentCornerRadius READ contentCornerRadius CONSTANT)
    /// The corner's shape; see ContinuousCorner.
    Q_PROPERTY(double contentCornerExtent READ contentCornerExtent CONSTANT)
    Q_PROPERTY(double contentCornerExponent READ contentCornerExponent CONSTANT)

public:
    using QObject::QObject;

    double contentCornerRadius() const { return ParallaxRules::contentCornerRadius; }
    double contentCornerExtent() const { return contentCorner().extent; }
    double contentCornerExponent() const { return contentCorner().exponent; }

    Q_INVOKABLE QVariant heights(double opened, double collapsed) const;
    /// The parameters are those of ParallaxConfiguration, in the same order.
    Q_INVOKABLE QVariant configuration(const QVariant &portrait, const QVariant &landscape,
                                       double parallaxFactor, double stretchFactor,
                                       double thresholdPercentage, const QColor &headerBackground,
                                       const QColor &contentBackground) const;

private:
    static ContinuousCorner contentCorner();
};

} // namespace tolvane
