// SPDX-License-Identifier: MIT
#include "platform/network/transfer.h"

#include "platform/network/nonrewindablebody.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkProxyFactory>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <array>

namespace tolvane {

namespace {

constexpr qsizetype mebibyte = 1'048'576;
// Limits the bytes that wait to be read. The network stack receives on a thread of its own; a fast
// sender would fill the memory before the size of the body is checked.
constexpr qsizetype readBufferSize = mebibyte;
constexpr int maximumRedirects = 16;
// Servers accept some kilobytes of headers in requests, and send less.
constexpr qsizetype maximumHeaders = 1000;
constexpr qsizetype maximumHeadSize = 262'144;

struct ErrorCode
{
    QNetworkReply::NetworkError error;
    UrlError::Code code;
};

// Every other error is reported as a lost connection.
constexpr std::array errorCodes = {
    ErrorCode{QNetworkReply::ConnectionRefusedError, UrlError::cannotConnectToHost},
    ErrorCode{QNetworkReply::HostNotFoundError, UrlError::cannotFindHost},
    ErrorCode{QNetworkReply::TimeoutError, UrlError::timedOut},
    // The network stack's own timer aborts, too.
    ErrorCode{QNetworkReply::OperationCanceledError, UrlError::timedOut},
    ErrorCode{QNetworkReply::SslHandshakeFailedError, UrlError::secureConnectionFailed},
    ErrorCode{QNetworkReply::TemporaryNetworkFailureError, UrlError::notConnectedToInternet},
    ErrorCode{QNetworkReply::NetworkSessionFailedError, UrlError::notConnectedToInternet},
    ErrorCode{QNetworkReply::ProxyConnectionRefusedError, UrlError::cannotConnectToHost},
    ErrorCode{QNetworkReply::ProxyNotFoundError, UrlError::cannotFindHost},
    ErrorCode{QNetworkReply::ProxyTimeoutError, UrlError::timedOut},
    ErrorCode{QNetworkReply::ProtocolUnknownError, UrlError::unsupportedURL},
    ErrorCode{QNetworkReply::ProtocolFailure, UrlError::badServerResponse},
    ErrorCode{QNetworkReply::UnknownContentError, UrlError::badServerResponse},
};

UrlError transportError(const QNetworkReply &reply)
{
    for (const ErrorCode &entry : errorCodes) {
        if (entry.error == reply.error())
            return UrlError(entry.code, reply.errorString());
    }
    return UrlError(UrlError::networkConnectionLost, reply.errorString());
}

/// True for redirects that repeat the request with its method and body.
bool keepsMethod(int status)
{
    return status == 307 || status == 308;
}

/// True for an HTTP answer: Qt also reports the statuses 4xx and 5xx as errors.
bool isHttpAnswer(QNetworkReply::NetworkError error, int status)
{
    if (status == 0)
        return false;
    if (error == QNetworkReply::NoError)
        return true;
    const bool clientFailure =
        error == QNetworkReply::ProxyAuthenticationRequiredError ||
        error == QNetworkReply::ProtocolInvalidOperationError ||
        (error >= QNetworkReply::ContentAccessDenied &&
         error <= QNetworkReply::UnknownContentError && error != QNetworkReply::ContentReSendError);
    const bool serverFailure = error >= QNetworkReply::InternalServerError;
    // For these redirects the network stack rewinds the body before the library decides whether to
    // follow.
    if (error == QNetworkReply::ContentReSendError && keepsMethod(status))
        return true;
    return (status >= 400 && clientFailure) || (status >= 500 && serverFailure);
}

bool isSameOrigin(const QUrl &a, const QUrl &b)
{
    const auto port = [](const QUrl &url) {
        return url.port(url.scheme() == QLatin1String("https") ? 443 : 80);
    };
    return a.scheme() == b.scheme() && a.host() == b.host() && port(a) == port(b);
}

/// Requests with the key stay on their origin. Anonymous requests may change it, but never from
/// https to http.
bool canFollowRedirect(const UrlRequest &request, const QUrl &target)
{
    if (!request.isAnonymous)
        return isSameOrigin(target, request.url);
    const QString scheme = target.scheme();
    return scheme == QLatin1String("https") ||
           (scheme == QLatin1String("http") && request.url.scheme() == scheme);
}

/// Removes everything that would identify the customer: cookies, and credentials of the address.
/// Refuses compression, which pictures have on their own.
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

/// Whether the name of a host is resolved elsewhere.
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
            checkNeighbour(addresses);
    });
}

void Transfer::checkNeighbour(const Addresses &target)
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
    // Beyond it, Qt stops within an answer that expands more than readAvailable() would accept.
    request.setDecompressedSafetyCheckThreshold(m_request.maximumBodySize);

    auto *body = new NonRewindableBody(m_request.body);
    m_body.clear();
    m_reply = m_manager.sendCustomRequest(request, m_request.method, body);
    body->setParent(m_reply);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &Transfer::readHead);
    connect(m_reply, &QNetworkReply::readyRead, this, &Transfer::readAvailable);
    connect(m_reply, &QNetworkReply::finished, this, &Transfer::finish);
    // The time for the head begins when the request has been sent.
    m_deadline.start(m_request.headTime);
    connect(m_reply, &QNetworkReply::uploadProgress, &m_deadline, qOverload<>(&QTimer::start));
}

void Transfer::readHead()
{
    m_deadline.start(m_request.responseTime);
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
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (!isHttpAnswer(m_reply->error(), status))
        return fail(transportError(*m_reply));
    if (followRedirect(status))
        return;
    succeed(status);
}

bool Transfer::followRedirect(int status)
{
    const bool isRedirect = keepsMethod(status) || (status >= 301 && status <= 303);
    // The raw header, because the parsed one is empty for a relative address.
    const QUrl location = QUrl::fromEncoded(m_reply->rawHeader("Location"));
    if (!isRedirect || location.isEmpty() || m_redirects == maximumRedirects)
        return false;
    // Nobody knows whether the server has handled it: a message could arrive twice.
    if (keepsMethod(status) && m_request.method != "GET")
        return false;
    const QUrl target = m_request.url.resolved(location);
    if (!target.isValid() || target.host().isEmpty() || !canFollowRedirect(m_request, target))
        return false;
    ++m_redirects;
    m_request.url = target;
    if (!keepsMethod(status) && m_request.method != "GET") {
        // RFC 9110, 15.4: the client fetches the result with GET.
        m_request.method = "GET";
        m_request.body.clear();
        m_request.headers.removeIf(
            [](const auto &header) { return header.first == "Content-Type"; });
    }
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
