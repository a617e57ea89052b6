// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace tolvane::backend {

/// The backend cannot start. The text describes the problem and how to fix it.
class StartError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A file, a setting or a body is invalid. The text continues a sentence that begins with its
/// source.
class InputError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A request is rejected with an HTTP status. The text is meant for the client's developer.
class HttpError : public std::runtime_error
{
public:
    HttpError(int status, const std::string &reason)
        : std::runtime_error(reason)
        , m_status(status)
    {
    }

    int status() const { return m_status; }

private:
    int m_status;
};

} // namespace tolvane::backend
