// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/tolvane.h>

#include <atomic>
#include <mutex>
#include <optional>

namespace tolvane {

/// What the host has set: the key, whose presence is what initialised means, and the environment.
/// Safe from any thread.
class TOLVANE_AUTOTEST_EXPORT Configuration
{
public:
    static Configuration &shared();

    std::optional<QString> apiKey() const;

    /// Keeps the key unless there is one already; false then.
    bool adoptApiKey(const QString &key);

    Tolvane::Environment environment() const { return m_environment; }
    void setEnvironment(Tolvane::Environment environment) { m_environment = environment; }

private:
    mutable std::mutex m_mutex;
    std::optional<QString> m_apiKey;
    std::atomic<Tolvane::Environment> m_environment = Tolvane::Environment::production;
};

} // namespace tolvane
