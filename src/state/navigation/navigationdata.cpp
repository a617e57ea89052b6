// SPDX-License-Identifier: MIT
#include "state/navigation/navigationdata.h"

#include "analytics/manager.h"

#include <array>

namespace tolvane {

namespace {

struct UserAction
{
    const char *name;
    const char *screen;
};

// Indexed by TolvaneDestination::Kind.
constexpr std::array userActions = {
    UserAction{"navigate_to_ticket", "chat_list"},
    UserAction{"navigate_to_image_viewer", "ticket"},
    UserAction{"navigate_to_new_ticket", "chat_list"},
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
    const UserAction &userAction = userActions.at(static_cast<std::size_t>(to.kind()));
    TolvaneAnalyticsManager::shared().trackUserAction(QString::fromLatin1(userAction.name),
                                                      QString::fromLatin1(userAction.screen),
                                                      propertiesOf(to));
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
