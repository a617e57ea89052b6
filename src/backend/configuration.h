// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/tolvane.h>

#include <atomic>
#include <mutex>
#include <optional>

namespace tolvane {

/// The host's API key and environment. The library is initialised once there is a key. Safe from
/// any thread.
class TOLVANE_AUTOTEST_EXPORT Configuration
{
public:
    static Configuration &shared();

    std::optional<QString> apiKey() const;

    /// Stores the key. False, without any effect, if there is a key already.
    bool setApiKeyOnce(const QString &key);

    Tolvane::Environment environment() const { return m_environment; }
    void setEnvironment(Tolvane::Environment environment) { m_environment = environment; }

private:
    mutable std::mutex m_mutex;
    std::optional<QString> m_apiKey;
    std::atomic<Tolvane::Environment> m_environment = Tolvane::Environment::production;
};

} // namespace tolvane
