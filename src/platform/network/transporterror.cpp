// SPDX-License-Identifier: MIT
#include "platform/network/transporterror.h"

#include "platform/network/redirect.h"

#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <array>

namespace tolvane {

namespace {

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

} // namespace

bool isHttpResponse(const QNetworkReply &reply)
{
    const QNetworkReply::NetworkError error = reply.error();
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
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
    // The network stack has tried to rewind the body, before the library decides about the
    // redirect.
    if (error == QNetworkReply::ContentReSendError && keepsMethod(status))
        return true;
    return (status >= 400 && clientFailure) || (status >= 500 && serverFailure);
}

UrlError transportError(const QNetworkReply &reply)
{
    for (const ErrorCode &entry : errorCodes) {
        if (entry.error == reply.error())
            return UrlError(entry.code, reply.errorString());
    }
    return UrlError(UrlError::networkConnectionLost, reply.errorString());
}

} // namespace tolvane
