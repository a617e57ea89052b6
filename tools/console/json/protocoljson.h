// SPDX-License-Identifier: MIT
#pragma once

#include "platform/async/notificationcenter.h"
#include "state/ticketdata.h"
#include "state/ticketsdata.h"

#include <tolvane/analytics.h>

#include <QtCore/QJsonObject>

// Converts the library's types to the JSON of the protocol.

namespace tolvane::console {

QJsonObject eventToJson(const TolvaneAnalyticsEvent &event);
QJsonValue userInfoToJson(const NotificationCenter::UserInfo &userInfo);
QJsonObject settingsToJson();
QJsonObject ticketsToJson(const TicketsData &tickets);
QJsonObject ticketToJson(const TicketData &ticket);

QJsonValue textOrNull(const std::optional<QString> &text);

} // namespace tolvane::console
