// SPDX-License-Identifier: MIT
#include "base/errors.h"

#include <array>

namespace tolvane {

namespace {

struct CodeText
{
    UrlError::Code code;
    const char *text;
};

constexpr std::array codeTexts = {
    CodeText{UrlError::cancelled, "The request was cancelled."},
    CodeText{UrlError::badURL, "The address is not valid."},
    CodeText{UrlError::timedOut, "The request timed out."},
    CodeText{UrlError::unsupportedURL, "The scheme of the address is not supported."},
    CodeText{UrlError::cannotFindHost, "The server could not be found."},
    CodeText{UrlError::cannotConnectToHost, "The server could not be reached."},
    CodeText{UrlError::networkConnectionLost, "The network connection was lost."},
    CodeText{UrlError::notConnectedToInternet, "There is no connection to the internet."},
    CodeText{UrlError::badServerResponse, "The response is not valid HTTP."},
    CodeText{UrlError::dataLengthExceedsMaximum, "The response is too large."},
    CodeText{UrlError::secureConnectionFailed, "A secure connection could not be made."},
};

QString describe(UrlError::Code code, const QString &detail)
{
    QString text;
    for (const CodeText &entry : codeTexts) {
        if (entry.code == code)
            text = QString::fromLatin1(entry.text);
    }
    return detail.isEmpty() ? text : text + QStringLiteral(" (%1)").arg(detail);
}

} // namespace

const QString ErrorDomain::transport = QStringLiteral("NSURLErrorDomain");
const QString ErrorDomain::api = QStringLiteral("TolvaneSdk.APIError");
const QString ErrorDomain::decoding = QStringLiteral("TolvaneSdk.DecodingError");
const QString ErrorDomain::file = QStringLiteral("TolvaneSdk.FileError");
const QString ErrorDomain::cancellation = QStringLiteral("TolvaneSdk.Cancellation");
const QString ErrorDomain::unexpected = QStringLiteral("TolvaneSdk.UnexpectedError");

Error::Error(QString domain, int code, QString localizedDescription)
    : m_domain(std::move(domain))
    , m_code(code)
    , m_description(std::move(localizedDescription))
    , m_what(m_description.toUtf8())
{
}

Error::~Error() = default;

CancellationError::CancellationError()
    : Error(ErrorDomain::cancellation, 1, QStringLiteral("The operation was cancelled."))
{
}

UrlError::UrlError(Code code, const QString &detail)
    : Error(ErrorDomain::transport, code, describe(code, detail))
{
}

ErrorPtr currentError()
{
    try {
        throw;
    } catch (const Error &error) {
        // An exception_ptr keeps the exception object alive with its dynamic type.
        auto held = std::make_shared<std::exception_ptr>(std::current_exception());
        return ErrorPtr(std::move(held), &error);
    } catch (const std::exception &error) {
        return std::make_shared<Error>(ErrorDomain::unexpected, 1, QString::fromUtf8(error.what()));
    } catch (...) {
        return std::make_shared<Error>(ErrorDomain::unexpected, 1,
                                       QStringLiteral("An unexpected error occurred."));
    }
}

} // namespace tolvane
