// SPDX-License-Identifier: MIT
#include "ui/parallax/parallaxscroll.h"

#include <QtQml/QQmlInfo>

#include <limits>

namespace tolvane {

namespace {

/// The initial configuration, without a header.
const ParallaxHeightConfiguration noHeights(0, 0);
const ParallaxConfiguration emptyConfiguration(noHeights, noHeights, 0, 1, 0, {}, {});

/// Null if the value has another type. (QVariant::value() needs a default constructor, which these
/// types do not have.)
template <typename Type>
const Type *valueAs(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<Type>()
               ? static_cast<const Type *>(value.constData())
               : nullptr;
}

} // namespace

ParallaxScroll::ParallaxScroll(QObject *parent)
    : QObject(parent)
    , m_rules(emptyConfiguration)
{
    m_rules.onStateChange = [this](ParallaxScrollState) { Q_EMIT stateChanged(); };
    connect(this, &ParallaxScroll::layoutChanged, this, &ParallaxScroll::scrolled);
}

void ParallaxScroll::setConfiguration(const QVariant &configuration)
{
    const auto *value = valueAs<ParallaxConfiguration>(configuration);
    if (!value) {
        qmlWarning(this) << "configuration must be made with Parallax.configuration()";
        return;
    }
    if (*value == m_rules.configuration())
        return;
    m_rules.setConfiguration(*value);
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

void ParallaxScroll::setScrollOffset(double offset)
{
    if (offset == m_rules.scrollOffset())
        return;
    m_rules.setScrollOffset(offset);
    Q_EMIT scrolled();
}

QVariant ParallaxFactory::heights(double opened, double collapsed) const
{
    return QVariant::fromValue(ParallaxHeightConfiguration(opened, collapsed));
}

QVariant ParallaxFactory::configuration(const QVariant &portrait, const QVariant &landscape,
                                        double parallaxFactor, double stretchFactor,
                                        double thresholdPercentage, const QColor &headerBackground,
                                        const QColor &contentBackground) const
{
    const auto *portraitHeights = valueAs<ParallaxHeightConfiguration>(portrait);
    const auto *landscapeHeights = valueAs<ParallaxHeightConfiguration>(landscape);
    if (!portraitHeights || !landscapeHeights) {
        qmlWarning(this) << "portrait and landscape must be made with Parallax.heights()";
        return {};
    }
    return QVariant::fromValue(
        ParallaxConfiguration(*portraitHeights, *landscapeHeights, parallaxFactor, stretchFactor,
                              thresholdPercentage, headerBackground, contentBackground));
}

ContinuousCorner ParallaxFactory::contentCorner()
{
    return ContinuousCorner::forRadius(ParallaxRules::contentCornerRadius,
                                       std::numeric_limits<double>::infinity());
}

} // namespace tolvane
