// SPDX-License-Identifier: MIT
#include "ui/parallax/parallaxscroll.h"

#include <QtQml/QQmlInfo>

#include <limits>

namespace tolvane {

namespace {

/// The configuration until one is set: no header.
const ParallaxHeightConfiguration noHeights(0, 0);
const ParallaxConfiguration nothing(noHeights, noHeights, 0, 1, 0, {}, {});

/// Null if the value has another type. QVariant::value() is not possible: it needs a default
/// constructor, which these types do not have.
template <typename Type>
const Type *get(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<Type>()
               ? static_cast<const Type *>(value.constData())
               : nullptr;
}

} // namespace

ParallaxScroll::ParallaxScroll(QObject *parent)
    : QObject(parent)
    , m_rules(nothing)
{
    m_rules.onStateChange = [this](ParallaxScrollState) { Q_EMIT stateChanged(); };
    connect(this, &ParallaxScroll::layoutChanged, this, &ParallaxScroll::scrolled);
}

void ParallaxScroll::setConfiguration(const QVariant &configuration)
{
    const auto *given = get<ParallaxConfiguration>(configuration);
    if (!given) {
        qmlWarning(this) << "configuration must be made with Parallax.configuration()";
        return;
    }
    if (*given == m_rules.configuration())
        return;
    m_rules.setConfiguration(*given);
    Q_EMIT layoutChanged();
}

void ParallaxScroll::setViewHeight(double height)
{
    if (height == m_rules.viewHeight())
        return;
    m_rules.setViewHeight(height);
    Q_EMIT layoutChanged();
}

void ParallaxScroll::setLandscape(bool isLandscape)
{
    if (isLandscape == m_rules.isLandscape())
        return;
    m_rules.setLandscape(isLandscape);
    Q_EMIT layoutChanged();
}

void ParallaxScroll::scroll(double offset)
{
    if (offset == m_rules.scrollOffset())
        return;
    m_rules.scroll(offset);
    Q_EMIT scrolled();
}

QVariant ParallaxType::heights(double opened, double collapsed) const
{
    return QVariant::fromValue(ParallaxHeightConfiguration(opened, collapsed));
}

QVariant ParallaxType::configuration(const QVariant &portrait, const QVariant &landscape,
                                     double parallaxFactor, double stretchFactor,
                                     double thresholdPercentage, const QColor &headerBackground,
                                     const QColor &contentBackground) const
{
    const auto *upright = get<ParallaxHeightConfiguration>(portrait);
    const auto *lying = get<ParallaxHeightConfiguration>(landscape);
    if (!upright || !lying) {
        qmlWarning(this) << "portrait and landscape must be made with Parallax.heights()";
        return {};
    }
    return QVariant::fromValue(ParallaxConfiguration(*upright, *lying, parallaxFactor,
                                                     stretchFactor, thresholdPercentage,
                                                     headerBackground, contentBackground));
}

ContinuousCorner ParallaxType::contentCorner()
{
    return ContinuousCorner::of(ParallaxRules::contentCornerRadius,
                                std::numeric_limits<double>::infinity());
}

} // namespace tolvane
