// SPDX-License-Identifier: MIT
#include "backend/requests.h"

#include "backend/persistentstore.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUuid>

namespace tolvane {

namespace {

/// Encodes all but unreserved characters: servers would decode a literal "+" as a space.
QString encodedQuery(const QList<QueryItem> &query)
{
    QStringList items;
    for (const auto &[name, value] : query) {
        QByteArray item = QUrl::toPercentEncoding(name);
        if (value)
            item += '=' + QUrl::toPercentEncoding(*value);
        items += QString::fromLatin1(item);
    }
    return items.join(QLatin1Char('&'));
}

QUrl address(const Endpoint &endpoint, const QString &path, const QList<QueryItem> &query)
{
    QUrl url(endpoint.baseUrl + path, QUrl::StrictMode);
    if (url.isValid())
        url.setQuery(query.isEmpty() ? QString() : encodedQuery(query));
    return url;
}

UrlRequest makeRequest(const Endpoint &endpoint, const QByteArray &method, const QUrl &url,
                       const QByteArray &contentType = {}, QByteArray body = {})
{
    HttpHeaders headers = {{"Accept", "application/json"}};
    if (!contentType.isEmpty())
        headers.emplaceBack("Content-Type", contentType);
    headers.emplaceBack("Authorization", "Bearer " + endpoint.apiKey.toUtf8());
    if (const std::optional<QString> id = persistentstore::customerId())
        headers.emplaceBack("X-Tolvane-Customer", id->toUtf8());
    return {.url = url, .method = method, .headers = headers, .body = std::move(body)};
}

MultipartBody makeForm(const QList<AttachmentDto> &attachments)
{
    MultipartBody form(QUuid::createUuid().toByteArray(QUuid::WithoutBraces).toUpper());
    // Capacity for the headers of the parts, the texts and each file.
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

} // namespace

QByteArray encodedSegment(const QString &text)
{
    // RFC 3986, 3.3. Escapes in the text stay as they are.
    static const QRegularExpression encodedEscape(QStringLiteral("%25(?=[0-9A-Fa-f]{2})"));
    const QByteArray encoded = QUrl::toPercentEncoding(text, "!$&'()*+,;=:@");
    return QString::fromLatin1(encoded).replace(encodedEscape, QStringLiteral("%")).toLatin1();
}

UrlRequest getRequest(const Endpoint &endpoint, const QString &path, const QList<QueryItem> &query)
{
    return makeRequest(endpoint, "GET", address(endpoint, path, query));
}

UrlRequest jsonRequest(const Endpoint &endpoint, const QString &path, const QByteArray &json)
{
    return makeRequest(endpoint, "POST", address(endpoint, path, {}), "application/json", json);
}

UrlRequest multipartRequest(const Endpoint &endpoint, const QString &path,
                            const MultipartBody &body)
{
    return makeRequest(endpoint, "POST", address(endpoint, path, {}),
                       "multipart/form-data; boundary=" + body.boundary(), body.finish());
}

MultipartBody ticketForm(const CreateTicketDto &ticket,
                         const std::optional<QList<AttachmentDto>> &attachments)
{
    const QList<AttachmentDto> files = attachments.value_or(QList<AttachmentDto>());
    MultipartBody form = makeForm(files);
    form.appendRecord(ticket);
    appendAttachments(form, files);
    return form;
}

MultipartBody messageForm(const SendMessageDto &message)
{
    const QList<AttachmentDto> files = message.attachments.value_or(QList<AttachmentDto>());
    MultipartBody form = makeForm(files);
    form.appendField(QStringLiteral("message"), message.message);
    appendAttachments(form, files);
    return form;
}

} // namespace tolvane
