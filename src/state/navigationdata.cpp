// SPDX-License-Identifier: MIT
#include "state/navigationdata.h"

#include "analytics/manager.h"

#include <array>

namespace tolvane {

namespace {

struct Step
{
    const char *action;
    const char *screen;
};

// Indexed by TolvaneDestination::Kind.
constexpr std::array steps = {
    Step{"navigate_to_ticket", "chat_list"},
    Step{"navigate_to_image_viewer", "ticket"},
    Step{"navigate_to_new_ticket", "chat_list"},
};

QVariantMap propertiesOf(const TolvaneDestination &destination)
{
    if (destination.kind() == TolvaneDestination::Kind::imageViewer)
        return {{QStringLiteral("image_url"), destination.imageUrl().toString(QUrl::FullyEncoded)}};
    if (destination.preview())
        return {{TolvaneAnalyticsEvent::PropertyKeys::ticketId, destination.ticketId()}};
    return {};
}

} // namespace

void NavigationData::setPath(const Path &path)
{
    if (m_path == path)
        return;
    m_path = path;
    Q_EMIT pathChanged();
}

void NavigationData::navigate(const TolvaneDestination &to)
{
    const Step &step = steps.at(static_cast<std::size_t>(to.kind()));
    TolvaneAnalyticsManager::shared().trackUserAction(
        QString::fromLatin1(step.action), QString::fromLatin1(step.screen), propertiesOf(to));
    m_path.append(to);
    Q_EMIT pathChanged();
}

void NavigationData::goBack()
{
    if (m_path.isEmpty())
        return;
    m_path.removeLast();
    Q_EMIT pathChanged();
}

} // namespace tolvane
