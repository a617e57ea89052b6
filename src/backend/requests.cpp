// SPDX-License-Identifier: MIT
#include "backend/requests.h"

#include "core/persistentstore.h"

namespace tolvane {

namespace {

/// Everything but unreserved characters is encoded: a "+" left as it is would read as a blank.
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

} // namespace

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

} // namespace tolvane
