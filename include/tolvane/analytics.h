// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/export.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <optional>

namespace tolvane {

/// Something that happened in the messenger, with its context. Immutable.
class TOLVANE_EXPORT TolvaneAnalyticsEvent
{
public:
    struct Lifecycle
    {
        static const QString sdkInitialized;
        static const QString sdkConfigured;
        static const QString customerUpdated;
        static const QString deviceTokenSet;
        static const QString fetchedSettings;
    };
    struct Chat
    {
        static const QString opened;
        static const QString closed;
        static const QString messageSent;
        static const QString messageReceived;
        static const QString attachmentSent;
        static const QString ticketCreated;
        static const QString ticketViewed;
    };
    struct Notifications
    {
        static const QString pushReceived;
        static const QString pushPresented;
        static const QString pushTapped;
    };
    struct Errors
    {
        static const QString networkError;
        static const QString apiError;
        static const QString configurationError;
    };
    struct PropertyKeys
    {
        static const QString ticketId;
        static const QString messageId;
        static const QString messageLength;
        static const QString attachmentCount;
        static const QString attachmentTypes;
        static const QString isFirstMessage;
        static const QString errorCode;
        static const QString errorMessage;
        static const QString errorDomain;
        static const QString screenName;
        static const QString actionType;
        static const QString duration;
        static const QString notificationType;
        static const QString notificationSource;
        static const QString deviceModel;
        static const QString osVersion;
        static const QString appVersion;
    };

    TolvaneAnalyticsEvent(QString name, QVariantMap properties, QDateTime timestamp,
                          QString sdkVersion, std::optional<QString> customerId,
                          std::optional<QString> originalCustomerId, QString environment);

    QString name() const { return m_name; }
    QVariantMap properties() const { return m_properties; }
    /// When the event was made, in UTC.
    QDateTime timestamp() const { return m_timestamp; }
    /// The host's QCoreApplication::applicationVersion(), "0.1.0" where it has none.
    QString sdkVersion() const { return m_sdkVersion; }
    std::optional<QString> customerId() const { return m_customerId; }
    /// The host's own id of the customer, from Tolvane::updateCustomer().
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

/// Receives the events; the host implements it and hands it to Tolvane::setAnalyticsDelegate().
///
/// The library holds the delegate weakly. Calls come on the main thread, and a slow delegate holds
/// that thread up. A delegate may drop itself from inside a call; an exception that leaves a call
/// is caught and reported to the log.
class TOLVANE_EXPORT TolvaneAnalyticsDelegate
{
public:
    virtual ~TolvaneAnalyticsDelegate();

    virtual void didReceiveEvent(const TolvaneAnalyticsEvent &event) = 0;
    virtual void didUpdateUserProperties(const QVariantMap &properties);
    virtual void didUpdateUserID(const std::optional<QString> &userId);
};

} // namespace tolvane
