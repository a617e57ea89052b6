// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/fields.h"
#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>

#include <optional>

// The records that library and backend exchange. An optional field may be missing or null on the
// wire, and is omitted when written; all other fields are required. Dates are kept as received
// texts.

namespace tolvane {

struct BrandingDto
{
    QString primaryLight;
    QString accentLight;
    QString chatBackgroundLight;
    QString fontColorBasicLight;
    QString fontColorUserBubbleLight;
    QString fontColorAgentBubbleLight;
    QString bubbleUserLight;
    QString bubbleAgentLight;
    QString primaryDark;
    QString accentDark;
    QString chatBackgroundDark;
    QString fontColorBasicDark;
    QString fontColorUserBubbleDark;
    QString fontColorAgentBubbleDark;
    QString bubbleUserDark;
    QString bubbleAgentDark;
    std::optional<QString> logoLight;
    std::optional<QString> logoDark;
    /// Opaque; only sent back to the backend.
    QString updatedAt;

    bool operator==(const BrandingDto &) const = default;
};

template <>
inline constexpr auto fieldsOf<BrandingDto> = std::tuple{
    field("primaryLight", &BrandingDto::primaryLight),
    field("accentLight", &BrandingDto::accentLight),
    field("chatBackgroundLight", &BrandingDto::chatBackgroundLight),
    field("fontColorBasicLight", &BrandingDto::fontColorBasicLight),
    field("fontColorUserBubbleLight", &BrandingDto::fontColorUserBubbleLight),
    field("fontColorAgentBubbleLight", &BrandingDto::fontColorAgentBubbleLight),
    field("bubbleUserLight", &BrandingDto::bubbleUserLight),
    field("bubbleAgentLight", &BrandingDto::bubbleAgentLight),
    field("primaryDark", &BrandingDto::primaryDark),
    field("accentDark", &BrandingDto::accentDark),
    field("chatBackgroundDark", &BrandingDto::chatBackgroundDark),
    field("fontColorBasicDark", &BrandingDto::fontColorBasicDark),
    field("fontColorUserBubbleDark", &BrandingDto::fontColorUserBubbleDark),
    field("fontColorAgentBubbleDark", &BrandingDto::fontColorAgentBubbleDark),
    field("bubbleUserDark", &BrandingDto::bubbleUserDark),
    field("bubbleAgentDark", &BrandingDto::bubbleAgentDark),
    field("logoLight", &BrandingDto::logoLight),
    field("logoDark", &BrandingDto::logoDark),
    field("updatedAt", &BrandingDto::updatedAt),
};

struct SenderDto
{
    QString id;
    std::optional<QString> name;
    std::optional<QString> profilePicture;
    /// "customer", "ai agent", "human agent", or another value of the backend.
    QString type;

    bool operator==(const SenderDto &) const = default;
};

template <>
inline constexpr auto fieldsOf<SenderDto> = std::tuple{
    field("id", &SenderDto::id),
    field("name", &SenderDto::name),
    field("profilePicture", &SenderDto::profilePicture),
    field("type", &SenderDto::type),
};

struct MessageDto
{
    QString id;
    QString ticketId;
    SenderDto sender;
    QString content;
    bool isRead = false;
    /// "yyyy-MM-dd'T'HH:mm:ssZ"
    QString timestamp;
    std::optional<QList<QString>> attachments;

    bool operator==(const MessageDto &) const = default;
};

template <>
inline constexpr auto fieldsOf<MessageDto> = std::tuple{
    field("id", &MessageDto::id),
    field("ticketId", &MessageDto::ticketId),
    field("sender", &MessageDto::sender),
    field("content", &MessageDto::content),
    field("isRead", &MessageDto::isRead),
    field("timestamp", &MessageDto::timestamp),
    field("attachments", &MessageDto::attachments),
};

struct ScheduleDto
{
    QString id;
    QString startTime;
    QString endTime;
    QList<QString> days;

    bool operator==(const ScheduleDto &) const = default;
};

template <>
inline constexpr auto fieldsOf<ScheduleDto> = std::tuple{
    field("id", &ScheduleDto::id),
    field("startTime", &ScheduleDto::startTime),
    field("endTime", &ScheduleDto::endTime),
    field("days", &ScheduleDto::days),
};

struct TicketDto
{
    QString id;
    QString state;
    QString assignee;
    QList<MessageDto> messages;
    QList<ScheduleDto> schedules;

    bool operator==(const TicketDto &) const = default;
};

template <>
inline constexpr auto fieldsOf<TicketDto> = std::tuple{
    field("id", &TicketDto::id),
    field("state", &TicketDto::state),
    field("assignee", &TicketDto::assignee),
    field("messages", &TicketDto::messages),
    field("schedules", &TicketDto::schedules),
};

struct TicketPreviewDto
{
    QString id;
    QString state;
    MessageDto lastMessage;

    bool operator==(const TicketPreviewDto &) const = default;
};

template <>
inline constexpr auto fieldsOf<TicketPreviewDto> = std::tuple{
    field("id", &TicketPreviewDto::id),
    field("state", &TicketPreviewDto::state),
    field("lastMessage", &TicketPreviewDto::lastMessage),
};

struct TOLVANE_AUTOTEST_EXPORT DeviceInfoDto
{
    QString deviceModel;
    QString deviceName;
    QString osVersion;
    QString appVersion;
    QString appBuild;
    int screenWidth = 0;
    int screenHeight = 0;
    float batteryLevel = 0;
    QString batteryState;
    QString locale;
    QString timezone;

    bool operator==(const DeviceInfoDto &) const = default;

    /// The current properties of the device. Main thread.
    static DeviceInfoDto current();
};

template <>
inline constexpr auto fieldsOf<DeviceInfoDto> = std::tuple{
    field("deviceModel", &DeviceInfoDto::deviceModel),
    field("deviceName", &DeviceInfoDto::deviceName),
    field("osVersion", &DeviceInfoDto::osVersion),
    field("appVersion", &DeviceInfoDto::appVersion),
    field("appBuild", &DeviceInfoDto::appBuild),
    field("screenWidth", &DeviceInfoDto::screenWidth),
    field("screenHeight", &DeviceInfoDto::screenHeight),
    field("batteryLevel", &DeviceInfoDto::batteryLevel),
    field("batteryState", &DeviceInfoDto::batteryState),
    field("locale", &DeviceInfoDto::locale),
    field("timezone", &DeviceInfoDto::timezone),
};

struct CreateTicketDto
{
    QString message;
    QString channel;
    DeviceInfoDto deviceInfo;
};

template <>
inline constexpr auto fieldsOf<CreateTicketDto> = std::tuple{
    field("message", &CreateTicketDto::message),
    field("channel", &CreateTicketDto::channel),
    field("deviceInfo", &CreateTicketDto::deviceInfo),
};

struct UpdateCustomerDto
{
    std::optional<QString> email;
    std::optional<QString> originalId;
};

template <>
inline constexpr auto fieldsOf<UpdateCustomerDto> = std::tuple{
    field("email", &UpdateCustomerDto::email),
    field("originalId", &UpdateCustomerDto::originalId),
};

struct UpdateDeviceDto
{
    std::optional<QString> originalId;
    QString deviceToken;
};

template <>
inline constexpr auto fieldsOf<UpdateDeviceDto> = std::tuple{
    field("originalId", &UpdateDeviceDto::originalId),
    field("deviceToken", &UpdateDeviceDto::deviceToken),
};

/// A file of the customer; sent as a part of a form, never as JSON.
struct AttachmentDto
{
    QString name;
    QString mimeType;
    QByteArray data;

    bool operator==(const AttachmentDto &) const = default;
};

inline std::size_t qHash(const AttachmentDto &attachment, std::size_t seed = 0)
{
    return qHashMulti(seed, attachment.name, attachment.mimeType, attachment.data);
}

struct SendMessageDto
{
    QString message;
    std::optional<QList<AttachmentDto>> attachments;
};

/// Values of senders, states and assignees that the library compares, case-sensitively.
namespace words {
inline const QString customer = QStringLiteral("customer");
inline const QString humanAgent = QStringLiteral("human agent");
inline const QString aiAgent = QStringLiteral("ai agent");
/// The state of a closed ticket.
inline const QString closed = QStringLiteral("closed");
} // namespace words

} // namespace tolvane
