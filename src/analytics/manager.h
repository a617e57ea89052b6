// SPDX-License-Identifier: MIT
#pragma once

#include "platform/privateexport.h"

#include <tolvane/analytics.h>
#include <tolvane/error.h>

#include <QtCore/QVariantMap>

#include <atomic>
#include <memory>
#include <mutex>

namespace tolvane {

/// The one place through which all events go: adds their context, logs them and hands them to the
/// host's delegate, on the caller's thread. An event without a delegate is gone.
class TOLVANE_PRIVATE_EXPORT TolvaneAnalyticsManager
{
public:
    static TolvaneAnalyticsManager &shared();

    TolvaneAnalyticsManager();

    void setDelegate(const std::shared_ptr<TolvaneAnalyticsDelegate> &delegate);
    void setEnabled(bool enabled) { m_isEnabled = enabled; }

    void track(const QString &name, QVariantMap properties);

    /// @param context what was being done, such as "fetchTicket"; empty to leave it out
    void trackError(const QString &context, QVariantMap properties, const Error &error);

    void trackUserAction(const QString &action, const QString &screen, QVariantMap properties);

private:
    std::shared_ptr<TolvaneAnalyticsDelegate> delegate() const;

    mutable std::mutex m_mutex;
    std::weak_ptr<TolvaneAnalyticsDelegate> m_delegate;
    std::atomic<bool> m_isEnabled = true;
    const QString m_sdkVersion;
};

} // namespace tolvane
