// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace tolvane::backend {

/// Why the backend cannot start; the text says what is wrong and how to mend it.
class StartError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Why settings are no good; the text goes on from the name of what they came from.
class SettingsError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Why a request is turned down; the text is for the developer of the client.
class Refusal : public std::runtime_error
{
public:
    Refusal(int status, const std::string &reason)
        : std::runtime_error(reason)
        , m_status(status)
    {
    }

    int status() const { return m_status; }

private:
    int m_status;
};

} // namespace tolvane::backend
