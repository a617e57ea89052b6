// SPDX-License-Identifier: MIT
#include "analytics/reporting.h"

#include "analytics/manager.h"
#include "platform/logger.h"

namespace tolvane {

void logFailure(const QString &phrase, const Error &error)
{
    Logger::shared().log(LogLevel::error, phrase + error.localizedDescription());
}

void reportFailure(const QString &phrase, const QString &context, const Error &error)
{
    logFailure(phrase, error);
    TolvaneAnalyticsManager::shared().trackError(context, {}, error);
}

} // namespace tolvane
