// SPDX-License-Identifier: MIT
#include "backend/apiclient.h"

#include "backend/apierror.h"
#include "backend/configuration.h"
#include "backend/persistentstore.h"
#include "backend/requests.h"
#include "backend/wire/json.h"
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/platform.h"

#include <QtCore/QPromise>

namespace tolvane {

namespace {

/// The backend may assign a customer id with every response, whatever its status.
void storeCustomerId(const UrlResponse &response)
{
    const std::optional<QByteArray> id = response.header("X-Tolvane-Customer");
    if (id && !persistentstore::setCustomerId(QString::fromUtf8(*id))) {
        Logger::shared().log(LogLevel::warning,
                             QStringLiteral("The backend sent a customer id that cannot be used"));
    }
}

/// Texts of errors are shown, logged and sent to analytics; a server may quote its request in them.
QByteArray withoutKey(QByteArray body)
{
    // A shorter key is not a secret, and may be a word of other error texts.
    constexpr qsizetype shortestKey = 8;
    const QByteArray key = Configuration::shared().apiKey().value_or(QString()).toUtf8();
    return key.size() < shortestKey ? body : body.replace(key, "***");
}

void throwUnlessSuccess(const UrlResponse &response)
{
    if (response.status >= 200 && response.status <= 299)
        return;
    if (response.status >= 400 && response.status <= 499)
        throw APIError(APIError::clientError, withoutKey(response.body));
    if (response.status >= 500 && response.status <= 599)
        throw APIError(APIError::serverError, withoutKey(response.body));
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

/// Responses up to this size are decoded on the network thread: a thread switch would take longer.
constexpr qsizetype smallBody = 32'768;

bool isSmall(const QFuture<UrlResponse> &received)
{
    return received.resultCount() == 0 || received.resultAt(0).body.size() <= smallBody;
}

/// Decodes a response when it arrives; a large one on the workers, so that it does not delay other
/// responses.
template <typename Result>
QFuture<Result> readResponse(QFuture<UrlResponse> sent, Result (*read)(const UrlResponse &))
{
    auto promise = std::make_shared<QPromise<Result>>();
    promise->start();
    QFuture<Result> decoded = promise->future();
    sent.then(QtFuture::Launch::Sync, [promise, read](const QFuture<UrlResponse> &received) {
        const auto finish = [promise, read, received] {
            setPromiseFrom(*promise, [&] {
                const UrlResponse response = received.result();
                storeCustomerId(response);
                return read(response);
            });
        };
        if (isSmall(received))
            finish();
        else
            platform().workers->post(finish);
    });
    return decoded;
}

/// Sends one request and decodes its response, both off the caller's thread.
template <typename Result>
QCoro::Task<Result> perform(std::function<UrlRequest()> build, Result (*read)(const UrlResponse &))
{
    QFuture<UrlResponse> sent = platform().urlSession->send(std::move(build));
    QFuture<Result> decoded = readResponse(sent, read);
    co_return co_await awaitFuture(decoded);
}

/// Ids come from the backend and go into the path unchanged, apart from characters that an address
/// cannot have. One that would address another path makes the address invalid.
QString ticketPath(const QString &ticketId)
{
    const QByteArray id = encodedSegment(ticketId);
    const QByteArray decoded = QByteArray::fromPercentEncoding(id).trimmed();
    const bool isElsewhere = decoded.isEmpty() || decoded == "." || decoded == "..";
    return QStringLiteral("/ticket/") +
           (isElsewhere ? QStringLiteral("%") : QString::fromLatin1(id));
}

} // namespace

APIClient APIClient::live()
{
    const Endpoint endpoint = Endpoint::current();
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
                        return multipartRequest(endpoint, QStringLiteral("/ticket/create"),
                                                ticketForm(ticket, files));
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
                        return multipartRequest(endpoint, ticketPath(ticketId),
                                                messageForm(message));
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
