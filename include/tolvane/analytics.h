// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Analytics events for the host.

#include <tolvane/export.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <optional>

namespace tolvane {

/// An event in the messenger, with its context. Immutable, and safe to copy to other threads.
///
/// Names and keys are constants that hosts compare with:
///
/// @code
/// if (event.name() == TolvaneAnalyticsEvent::Chat::messageSent)
///     count(event.properties().value(TolvaneAnalyticsEvent::PropertyKeys::messageLength).toInt());
/// @endcode
///
/// Some events and keys have no constant, such as "user_action" and "polling_started"; the
/// catalogue in the host guide lists them all.
class TOLVANE_EXPORT TolvaneAnalyticsEvent
{
public:
    /// Names of events about the library itself.
    struct Lifecycle
    {
        static const QString sdkInitialized;  ///< "tolvane_sdk_initialized"
        static const QString sdkConfigured;   ///< "tolvane_sdk_configured", for hosts; never sent
        static const QString customerUpdated; ///< "tolvane_customer_updated"
        static const QString deviceTokenSet;  ///< "tolvane_device_token_set"
        static const QString fetchedSettings; ///< "tolvane_settings_fetched"
    };
    /// Names of events about conversations.
    struct Chat
    {
        static const QString opened;          ///< "tolvane_chat_opened"
        static const QString closed;          ///< "tolvane_chat_closed", for hosts; never sent
        static const QString messageSent;     ///< "tolvane_message_sent"
        static const QString messageReceived; ///< "tolvane_message_received"
        static const QString attachmentSent;  ///< "tolvane_attachment_sent", for hosts; never sent
        static const QString ticketCreated;   ///< "tolvane_ticket_created"
        static const QString ticketViewed;    ///< "tolvane_ticket_viewed"
    };
    /// Names of events about pushes.
    struct Notifications
    {
        static const QString pushReceived;  ///< "tolvane_push_received"
        static const QString pushPresented; ///< "tolvane_push_presented", for hosts; never sent
        static const QString pushTapped;    ///< "tolvane_push_tapped"
    };
    /// Names of events about failures.
    struct Errors
    {
        static const QString networkError;       ///< "tolvane_network_error", the transport
        static const QString apiError;           ///< "tolvane_api_error", any other failure
        static const QString configurationError; ///< "tolvane_configuration_error"
    };
    /// Keys of properties.
    struct PropertyKeys
    {
        static const QString ticketId;           ///< "ticket_id", text
        static const QString messageId;          ///< "message_id", text
        static const QString messageLength;      ///< "message_length", in characters
        static const QString attachmentCount;    ///< "attachment_count"
        static const QString attachmentTypes;    ///< "attachment_types", for hosts; never sent
        static const QString isFirstMessage;     ///< "is_first_message", Boolean
        static const QString errorCode;          ///< "error_code", see Error::code()
        static const QString errorMessage;       ///< "error_message", human-readable text
        static const QString errorDomain;        ///< "error_domain", see Error::domain()
        static const QString screenName;         ///< "screen_name", text
        static const QString actionType;         ///< "action_type", text
        static const QString duration;           ///< "duration", in seconds
        static const QString notificationType;   ///< "notification_type", for hosts; never sent
        static const QString notificationSource; ///< "notification_source", text
        static const QString deviceModel;        ///< "device_model", text; in every event
        static const QString osVersion;          ///< "os_version", text; in every event
        static const QString appVersion;         ///< "app_version", for hosts; never sent
    };

    /// Constructs an event, for hosts that test their delegate. Each parameter is the result of the
    /// function of the same name.
    TolvaneAnalyticsEvent(QString name, QVariantMap properties, QDateTime timestamp,
                          QString sdkVersion, std::optional<QString> customerId,
                          std::optional<QString> originalCustomerId, QString environment);

    /// One of the names above, or another name of the catalogue.
    QString name() const { return m_name; }
    /// Further details: texts, numbers and Booleans by key.
    QVariantMap properties() const { return m_properties; }
    /// When the event was created, in UTC.
    QDateTime timestamp() const { return m_timestamp; }
    /// The host's QCoreApplication::applicationVersion(); "0.1.0" without one.
    QString sdkVersion() const { return m_sdkVersion; }
    /// The library's id of the customer: 26 characters, unless the backend assigned another id;
    /// absent if the preferences cannot be read.
    std::optional<QString> customerId() const { return m_customerId; }
    /// The host's own id of the customer, as set with Tolvane::updateCustomer(); absent without
    /// one.
    std::optional<QString> originalCustomerId() const { return m_originalCustomerId; }
    /// "production", "development" or "alpha".
    QString environment() const { return m_environment; }

private:
    QString m_name;
    QVariantMap m_properties;
    QDateTime m_timestamp;
    QString m_sdkVersion;
    std::optional<QString> m_customerId;
    std::optional<QString> m_originalCustomerId;
    QString m_environment;
};

/// Receives analytics events. The host implements it and passes it to
/// Tolvane::setAnalyticsDelegate().
///
/// The library holds the delegate weakly. It calls the delegate on the main thread, which a slow
/// delegate blocks. A delegate may destroy itself during a call; an exception that leaves a call is
/// caught and logged. Events without a delegate are dropped.
class TOLVANE_EXPORT TolvaneAnalyticsDelegate
{
public:
    virtual ~TolvaneAnalyticsDelegate();

    /// Called for each event.
    virtual void didReceiveEvent(const TolvaneAnalyticsEvent &event) = 0;
    /// Never called by the library: for hosts that pass their own user properties through the
    /// delegate. The default implementation does nothing.
    virtual void didUpdateUserProperties(const QVariantMap &properties);
    /// Never called by the library: for hosts that pass their own user id through the delegate. The
    /// default implementation does nothing.
    virtual void didUpdateUserID(const std::optional<QString> &userId);
};

} // namespace tolvane
