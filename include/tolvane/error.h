// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The type of all errors.

#include <tolvane/export.h>

#include <QtCore/QString>

#include <exception>
#include <memory>

namespace tolvane {

/// A failure, with a human-readable text and a (domain, code) pair for programs.
///
/// Domains in use:
///
/// | domain                       | codes                                                     |
/// |------------------------------|-----------------------------------------------------------|
/// | "NSURLErrorDomain"           | transport failures: -999 cancelled, -1000 invalid URL,    |
/// |                              | -1001 timed out, -1002 unsupported URL, -1003 host not    |
/// |                              | found, -1004 cannot connect, -1005 connection lost, -1009 |
/// |                              | offline, -1011 invalid HTTP, -1103 response too large,    |
/// |                              | -1200 no secure connection                                |
/// | "TolvaneSdk.APIError"        | the HTTP status: 0 for 4xx, 1 for 5xx, 2 for any other    |
/// | "TolvaneSdk.DecodingError"   | a response that is 1 malformed JSON, 2 of another type,   |
/// |                              | 3 without a required key, 4 null for a required value     |
/// | "TolvaneSdk.FileError"       | a file cannot be written: a QFileDevice::FileError        |
/// | "TolvaneSdk.Cancellation"    | 1: the operation was cancelled                            |
/// | "TolvaneSdk.UnexpectedError" | 1: any other failure, for example lack of memory          |
///
/// The first domain and its codes are those of transport failures on Apple's platforms, so that
/// dashboards can compare platforms.
///
/// Errors are immutable and may be shared between threads. Hosts receive their text, code and
/// domain in analytics events.
class TOLVANE_EXPORT Error : public std::exception
{
public:
    /// Constructs an error from its domain, its code and a human-readable text.
    Error(QString domain, int code, QString localizedDescription);
    /// Copies share the texts.
    Error(const Error &) = default;
    /// Copies share the texts.
    Error &operator=(const Error &) = default;
    ~Error() override;

    /// A human-readable description. It never contains the API key.
    QString localizedDescription() const { return m_description; }
    /// Identifies the failure within the domain.
    int code() const { return m_code; }
    /// The domain, one of ErrorDomain.
    QString domain() const { return m_domain; }

    /// The description in UTF-8; valid as long as this object.
    const char *what() const noexcept override { return m_what.constData(); }

private:
    QString m_domain;
    int m_code;
    QString m_description;
    QByteArray m_what;
};

/// The domains of the library's errors, see the table of Error.
struct TOLVANE_EXPORT ErrorDomain
{
    static const QString transport;    ///< "NSURLErrorDomain"
    static const QString api;          ///< "TolvaneSdk.APIError"
    static const QString decoding;     ///< "TolvaneSdk.DecodingError"
    static const QString file;         ///< "TolvaneSdk.FileError"
    static const QString cancellation; ///< "TolvaneSdk.Cancellation"
    static const QString unexpected;   ///< "TolvaneSdk.UnexpectedError"
};

/// A shared, immutable error.
using ErrorPtr = std::shared_ptr<const Error>;

} // namespace tolvane
