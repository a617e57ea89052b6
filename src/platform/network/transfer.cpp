// SPDX-License-Identifier: MIT
#include "platform/network/transfer.h"

#include "platform/network/nonrewindablebody.h"
#include "platform/network/redirect.h"
#include "platform/network/transporterror.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkProxyFactory>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <algorithm>

namespace tolvane {

namespace {

constexpr qsizetype mebibyte = 1'048'576;
// Limits the bytes that wait to be read. The network stack receives on a thread of its own; a fast
// sender would fill the memory before the size of the body is checked.
constexpr qsizetype readBufferSize = mebibyte;
constexpr int maximumRedirects = 16;
// Far more than servers send.
constexpr qsizetype maximumHeaders = 1000;
constexpr qsizetype maximumHeadSize = 262'144;

/// Removes everything that would identify the customer: cookies, and credentials in the URL.
/// Refuses compression, since pictures are compressed already.
void makeAnonymous(QNetworkRequest &request)
{
    request.setRawHeader("Accept-Encoding", "identity");
    QUrl url = request.url();
    url.setUserInfo({});
    request.setUrl(url);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
}

bool isHeadTooLarge(const QNetworkReply &reply)
{
    const auto &headers = reply.rawHeaderPairs();
    qsizetype size = 0;
    for (const auto &[name, value] : headers)
        size += name.size() + value.size();
    // The network stack drops all headers of a head beyond its own limits, which vary with Qt.
    return headers.isEmpty() || headers.size() > maximumHeaders || size > maximumHeadSize;
}

/// True if a proxy resolves the name of the host.
bool usesProxy(const QUrl &url)
{
    const auto proxies = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url));
    return proxies.value(0).type() != QNetworkProxy::NoProxy;
}

bool isHeaderText(const QByteArray &text)
{
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
}

std::optional<UrlError> validationError(const UrlRequest &request)
{
    const QString scheme = request.url.scheme();
    if (!request.url.isValid() || scheme.isEmpty())
        return UrlError(UrlError::badURL);
    if (scheme != QLatin1String("http") && scheme != QLatin1String("https"))
        return UrlError(UrlError::unsupportedURL);
    if (request.url.host().isEmpty())
        return UrlError(UrlError::badURL);
    for (const auto &[name, value] : request.headers) {
        // A line break in a value could inject further headers.
        if (!isHeaderText(value))
            return UrlError(
                UrlError::badURL,
                QStringLiteral("header %1 contains a line break").arg(QString::fromLatin1(name)));
    }
    return std::nullopt;
}

} // namespace

Transfer::Transfer(QNetworkAccessManager &manager, UrlRequest request,
                   std::shared_ptr<QPromise<UrlResponse>> promise)
    : QObject(&manager)
    , m_manager(manager)
    , m_request(std::move(request))
    , m_promise(std::move(promise))
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] { abort(UrlError::timedOut); });
}

void Transfer::begin()
{
    if (const auto error = validationError(m_request))
        fail(*error);
    else
        checkAddress();
}

void Transfer::checkAddress()
{
    if (m_request.backend.isEmpty())
        return send();
    findAddresses(m_request.url.host(), this, [this](const Addresses &addresses) {
        if (addresses.isEmpty() && !usesProxy(m_request.url))
            fail(UrlError(UrlError::cannotFindHost));
        else if (mayReach(addresses, {}))
            send();
        else
            checkBackendAddress(addresses);
    });
}

void Transfer::checkBackendAddress(const Addresses &target)
{
    findAddresses(m_request.backend.host(), this, [this, target](const Addresses &backend) {
        if (mayReach(target, backend))
            send();
        else
            fail(UrlError(UrlError::cannotConnectToHost,
                          QStringLiteral("the address is in a private network")));
    });
}

void Transfer::send()
{
    QNetworkRequest request(m_request.url);
    for (const auto &[name, value] : m_request.headers)
        request.setRawHeader(name, value);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    if (m_request.isAnonymous)
        makeAnonymous(request);
    request.setTransferTimeout(static_cast<int>(m_request.timeout.count()));
    // Floods of HTTP/2 frames take any amount of memory in Qt's network thread.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    // Up to this size, Qt accepts any ratio of compression: long conversations compress well.
    // Beyond it, Qt may fail in the middle of a response, which is too large for readAvailable().
    request.setDecompressedSafetyCheckThreshold(m_request.maximumBodySize);

    auto *body = new NonRewindableBody(m_request.body);
    m_body.clear();
    m_reply = m_manager.sendCustomRequest(request, m_request.method, body);
    body->setParent(m_reply);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &Transfer::readHead);
    connect(m_reply, &QNetworkReply::readyRead, this, &Transfer::readAvailable);
    connect(m_reply, &QNetworkReply::finished, this, &Transfer::finish);
    // Restarted with each sent part of the request.
    m_deadline.start(m_request.headTimeout);
    connect(m_reply, &QNetworkReply::uploadProgress, &m_deadline, qOverload<>(&QTimer::start));
}

void Transfer::readHead()
{
    m_deadline.start(m_request.bodyTimeout);
    // Setting it earlier has no effect.
    m_reply->setReadBufferSize(readBufferSize);
    if (isHeadTooLarge(*m_reply))
        abort(UrlError::badServerResponse);
}

void Transfer::readAvailable()
{
    // Reads in bounded steps, since compressed data may expand to any size, and until a read
    // returns nothing, which makes the stack receive more.
    while (m_reply->isOpen() && m_body.size() <= m_request.maximumBodySize) {
        const QByteArray part = m_reply->read(readBufferSize);
        if (part.isEmpty())
            break;
        m_body += part;
    }
    if (m_body.size() > m_request.maximumBodySize)
        abort(UrlError::dataLengthExceedsMaximum);
}

void Transfer::abort(UrlError::Code failure)
{
    m_failure = failure;
    m_reply->abort(); // Emits finished().
}

void Transfer::finish()
{
    m_deadline.stop();
    m_reply->deleteLater();
    if (!m_failure)
        readAvailable();
    if (m_failure)
        return fail(UrlError(*m_failure));
    if (!isHttpResponse(*m_reply))
        return fail(transportError(*m_reply));
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (!followRedirect(status))
        succeed(status);
}

bool Transfer::followRedirect(int status)
{
    if (m_redirects == maximumRedirects)
        return false;
    // The raw header, because the parsed one is empty for a relative address.
    auto request = redirectedRequest(m_request, status, m_reply->rawHeader("Location"));
    if (!request)
        return false;
    ++m_redirects;
    m_request = std::move(*request);
    checkAddress();
    return true;
}

void Transfer::succeed(int status)
{
    // read() reserves its maximum size; this frees the unused rest.
    m_body.squeeze();
    m_promise->addResult(UrlResponse{status, m_reply->rawHeaderPairs(), std::move(m_body)});
    m_promise->finish();
    deleteLater();
}

void Transfer::fail(const UrlError &error)
{
    m_promise->setException(std::make_exception_ptr(error));
    m_promise->finish();
    deleteLater();
}

} // namespace tolvane
