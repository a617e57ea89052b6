// SPDX-License-Identifier: MIT
#include "backend/configuration.h"

#include "base/sharedinstance.h"

namespace tolvane {

Configuration &Configuration::shared()
{
    return *sharedInstance<Configuration>();
}

std::optional<QString> Configuration::apiKey() const
{
    const std::scoped_lock lock(m_mutex);
    return m_apiKey;
}

bool Configuration::setApiKeyOnce(const QString &key)
{
    const std::scoped_lock lock(m_mutex);
    if (m_apiKey)
        return false;
    m_apiKey = key;
    return true;
}

} // namespace tolvane
