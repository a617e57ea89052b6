// SPDX-License-Identifier: MIT
#include <tolvane/analytics.h>

namespace tolvane {

using Event = TolvaneAnalyticsEvent;

const QString Event::Lifecycle::sdkInitialized = QStringLiteral("tolvane_sdk_initialized");
const QString Event::Lifecycle::sdkConfigured = QStringLiteral("tolvane_sdk_configured");
const QString Event::Lifecycle::customerUpdated = QStringLiteral("tolvane_customer_updated");
const QString Event::Lifecycle::deviceTokenSet = QStringLiteral("tolvane_device_token_set");
const QString Event::Lifecycle::fetchedSettings = QStringLiteral("tolvane_settings_fetched");

const QString Event::Chat::opened = QStringLiteral("tolvane_chat_opened");
const QString Event::Chat::closed = QStringLiteral("tolvane_chat_closed");
const QString Event::Chat::messageSent = QStringLiteral("tolvane_message_sent");
const QString Event::Chat::messageReceived = QStringLiteral("tolvane_message_received");
const QString Event::Chat::attachmentSent = QStringLiteral("tolvane_attachment_sent");
const QString Event::Chat::ticketCreated = QStringLiteral("tolvane_ticket_created");
const QString Event::Chat::ticketViewed = QStringLiteral("tolvane_ticket_viewed");

const QString Event::Notifications::pushReceived = QStringLiteral("tolvane_push_received");
const QString Event::Notifications::pushPresented = QStringLiteral("tolvane_push_presented");
const QString Event::Notifications::pushTapped = QStringLiteral("tolvane_push_tapped");

const QString Event::Errors::networkError = QStringLiteral("tolvane_network_error");
const QString Event::Errors::apiError = QStringLiteral("tolvane_api_error");
const QString Event::Errors::configurationError = QStringLiteral("tolvane_configuration_error");

const QString Event::PropertyKeys::ticketId = QStringLiteral("ticket_id");
const QString Event::PropertyKeys::messageId = QStringLiteral("message_id");
const QString Event::PropertyKeys::messageLength = QStringLiteral("message_length");
const QString Event::PropertyKeys::attachmentCount = QStringLiteral("attachment_count");
const QString Event::PropertyKeys::attachmentTypes = QStringLiteral("attachment_types");
const QString Event::PropertyKeys::isFirstMessage = QStringLiteral("is_first_message");
const QString Event::PropertyKeys::errorCode = QStringLiteral("error_code");
const QString Event::PropertyKeys::errorMessage = QStringLiteral("error_message");
const QString Event::PropertyKeys::errorDomain = QStringLiteral("error_domain");
const QString Event::PropertyKeys::screenName = QStringLiteral("screen_name");
const QString Event::PropertyKeys::actionType = QStringLiteral("action_type");
const QString Event::PropertyKeys::duration = QStringLiteral("duration");
const QString Event::PropertyKeys::notificationType = QStringLiteral("notification_type");
const QString Event::PropertyKeys::notificationSource = QStringLiteral("notification_source");
const QString Event::PropertyKeys::deviceModel = QStringLiteral("device_model");
const QString Event::PropertyKeys::osVersion = QStringLiteral("os_version");
const QString Event::PropertyKeys::appVersion = QStringLiteral("app_version");

TolvaneAnalyticsEvent::TolvaneAnalyticsEvent(QString name, QVariantMap properties,
                                             QDateTime timestamp, QString sdkVersion,
                                             std::optional<QString> customerId,
                                             std::optional<QString> originalCustomerId,
                                             QString environment)
    : m_name(std::move(name))
    , m_properties(std::move(properties))
    , m_timestamp(std::move(timestamp))
    , m_sdkVersion(std::move(sdkVersion))
    , m_customerId(std::move(customerId))
    , m_originalCustomerId(std::move(originalCustomerId))
    , m_environment(std::move(environment))
{
}

TolvaneAnalyticsDelegate::~TolvaneAnalyticsDelegate() = default;

void TolvaneAnalyticsDelegate::didUpdateUserProperties(const QVariantMap &) {}

void TolvaneAnalyticsDelegate::didUpdateUserID(const std::optional<QString> &) {}

} // namespace tolvane
