// SPDX-License-Identifier: MIT
#pragma once

#include "platform/async/notificationcenter.h"
#include "state/ticketdata.h"
#include "state/ticketsdata.h"

#include <tolvane/analytics.h>

#include <QtCore/QJsonObject>

// What the library holds, in the form that the protocol tells it in.

namespace tolvane::console {

QJsonObject eventForm(const TolvaneAnalyticsEvent &event);
QJsonValue userInfoForm(const NotificationCenter::UserInfo &userInfo);
QJsonObject settingsForm();
QJsonObject ticketsForm(const TicketsData &tickets);
QJsonObject ticketForm(const TicketData &ticket);

QJsonValue textOrNull(const std::optional<QString> &text);

} // namespace tolvane::console
