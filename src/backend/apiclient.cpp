// SPDX-License-Identifier: MIT
#include "backend/apiclient.h"

#include "backend/apierror.h"
#include "backend/json.h"
#include "backend/requests.h"
#include "core/configuration.h"
#include "core/persistentstore.h"
#include "platform/await.h"
#include "platform/platform.h"

#include <QtCore/QUuid>

#include <array>

namespace tolvane {

namespace {

// Indexed by Tolvane::Environment.
constexpr std::array defaultEndpoints = {
    "https://api.tolvane.example/api",
    "https://api.development.tolvane.example/api",
    "https://api.alpha.tolvane.example/api",
};

Endpoint currentEndpoint()
{
    const Configuration &configuration = Configuration::shared();
    const auto environment = static_cast<std::size_t>(configuration.environment());
    return {platform()
                .environmentVariable("TOLVANE_API_URL")
                .value_or(QString::fromLatin1(defaultEndpoints.at(environment))),
            configuration.apiKey().value_or(QString())};
}

/// Whichever status it comes with, the backend's id is this customer's from now on.
void adoptCustomerId(const UrlResponse &response)
{
    if (const std::optional<QByteArray> id = response.header("X-Tolvane-Customer"))
        persistentstore::setCustomerId(QString::fromUtf8(*id));
}

void throwUnlessSuccess(const UrlResponse &response)
{
    if (response.status >= 200 && response.status <= 299)
        return;
    if (response.status >= 400 && response.status <= 499)
        throw APIError(APIError::clientError, response.body);
    if (response.status >= 500 && response.status <= 599)
        throw APIError(APIError::serverError, response.body);
    throw APIError(APIError::unknownError);
}

template <typename Result>
Result readRecord(const UrlResponse &response)
{
    throwUnlessSuccess(response);
    return json::decode<Result>(response.body);
}

std::optional<BrandingDto> readBranding(const UrlResponse &response)
{
    if (response.status == 304)
        return std::nullopt;
    return readRecord<BrandingDto>(response);
}

/// Sends one request and reads its answer. `build` and `read` run on the workers: bodies and
/// answers can be large, and both look into the persistent store.
template <typename Result>
QCoro::Task<Result> perform(std::function<UrlRequest()> build, Result (*read)(const UrlResponse &))
{
    UrlRequest request = co_await settled(platform().workers->run(std::move(build)));
    UrlResponse response = co_await settled(platform().urlSession->data(std::move(request)));
    auto answer = platform().workers->run([response = std::move(response), read] {
        adoptCustomerId(response);
        return read(response);
    });
    co_return co_await settled(std::move(answer));
}

MultipartBody makeForm(const QList<AttachmentDto> &attachments)
{
    MultipartBody form(QUuid::createUuid().toByteArray(QUuid::WithoutBraces).toUpper());
    constexpr qsizetype overhead = 4096;
    qsizetype size = overhead;
    for (const AttachmentDto &attachment : attachments)
        size += attachment.data.size() + overhead;
    form.reserve(size);
    return form;
}

void appendAttachments(MultipartBody &form, const QList<AttachmentDto> &attachments)
{
    for (const AttachmentDto &attachment : attachments) {
        form.appendFile(QStringLiteral("attachments[]"), attachment.name, attachment.mimeType,
                        attachment.data);
    }
}

QString ticketPath(const QString &ticketId)
{
    return QStringLiteral("/ticket/") + ticketId;
}

} // namespace

APIClient APIClient::live()
{
    const Endpoint endpoint = currentEndpoint();
    return {
        .getBranding =
            [endpoint](std::optional<QString> updatedAt) {
                return perform<std::optional<BrandingDto>>(
                    [=] {
                        return getRequest(endpoint, QStringLiteral("/settings"),
                                          {{QStringLiteral("updatedAt"), updatedAt}});
                    },
                    readBranding);
            },
        .createTicket =
            [endpoint](CreateTicketDto ticket, std::optional<QList<AttachmentDto>> files) {
                return perform<TicketDto>(
                    [=] {
                        const QList<AttachmentDto> attachments =
                            files.value_or(QList<AttachmentDto>());
                        MultipartBody form = makeForm(attachments);
                        form.appendRecord(ticket);
                        appendAttachments(form, attachments);
                        return multipartRequest(endpoint, QStringLiteral("/ticket/create"), form);
                    },
                    readRecord<TicketDto>);
            },
        .getTicket =
            [endpoint](QString ticketId) {
                return perform<TicketDto>(
                    [=] { return getRequest(endpoint, ticketPath(ticketId)); },
                    readRecord<TicketDto>);
            },
        .getTickets =
            [endpoint] {
                return perform<QList<TicketPreviewDto>>(
                    [=] { return getRequest(endpoint, QStringLiteral("/tickets")); },
                    readRecord<QList<TicketPreviewDto>>);
            },
        .sendMessage =
            [endpoint](QString ticketId, SendMessageDto message) {
                return perform<MessageDto>(
                    [=] {
                        const QList<AttachmentDto> attachments =
                            message.attachments.value_or(QList<AttachmentDto>());
                        MultipartBody form = makeForm(attachments);
                        form.appendField(QStringLiteral("message"), message.message);
                        appendAttachments(form, attachments);
                        return multipartRequest(endpoint, ticketPath(ticketId), form);
                    },
                    readRecord<MessageDto>);
            },
        .updateCustomer =
            [endpoint](UpdateCustomerDto customer) {
                return perform<void>(
                    [=] {
                        return jsonRequest(endpoint, QStringLiteral("/customer/update"),
                                           json::encode(customer));
                    },
                    throwUnlessSuccess);
            },
        .updateDevice =
            [endpoint](UpdateDeviceDto device) {
                return perform<void>(
                    [=] {
                        return jsonRequest(endpoint, QStringLiteral("/customer/device/update"),
                                           json::encode(device));
                    },
                    throwUnlessSuccess);
            },
    };
}

} // namespace tolvane
