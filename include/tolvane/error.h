// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/export.h>

#include <QtCore/QString>

#include <exception>
#include <memory>

namespace tolvane {

/// A failure, with a text for people and a (domain, code) pair for programs.
///
/// Domains in use:
///
/// | domain                       | meaning                                             |
/// |------------------------------|-----------------------------------------------------|
/// | "NSURLErrorDomain"           | transport failure, with that domain's known codes   |
/// | "TolvaneSdk.APIError"        | HTTP failure: 0 client, 1 server, 2 unknown         |
/// | "TolvaneSdk.DecodingError"   | a response that cannot be read, see DecodingError   |
/// | "TolvaneSdk.Cancellation"    | 1: the operation was cancelled                      |
/// | "TolvaneSdk.UnexpectedError" | 1: anything else, out of memory for instance        |
///
/// Errors are immutable and may be shared between threads.
class TOLVANE_EXPORT Error : public std::exception
{
public:
    Error(QString domain, int code, QString localizedDescription);
    Error(const Error &) = default;
    Error &operator=(const Error &) = default;
    ~Error() override;

    /// What happened, for people. Never holds the API key.
    QString localizedDescription() const { return m_description; }
    int code() const { return m_code; }
    QString domain() const { return m_domain; }

    /// The description in UTF-8; valid as long as this object.
    const char *what() const noexcept override { return m_what.constData(); }

private:
    QString m_domain;
    int m_code;
    QString m_description;
    QByteArray m_what;
};

/// How an error is kept: shared, never changed.
using ErrorPtr = std::shared_ptr<const Error>;

} // namespace tolvane
