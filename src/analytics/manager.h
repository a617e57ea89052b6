// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/analytics.h>
#include <tolvane/error.h>

#include <QtCore/QVariantMap>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace tolvane {

/// Receives all events of the library, adds their context, logs them and passes them to the host's
/// delegate and the observers, on the caller's thread. Without a receiver an event is dropped.
class TOLVANE_PRIVATE_EXPORT TolvaneAnalyticsManager
{
public:
    static TolvaneAnalyticsManager &shared();

    TolvaneAnalyticsManager();

    using Receiver = std::shared_ptr<TolvaneAnalyticsDelegate>;

    void setDelegate(const Receiver &delegate);
    /// Receives each event after the host's delegate, also without a delegate. Held weakly.
    void addObserver(const Receiver &observer);
    void setEnabled(bool enabled) { m_isEnabled = enabled; }

    void track(const QString &name, QVariantMap properties);

    /// @param context the failed operation, such as "fetchTicket"; omitted if empty
    void trackError(const QString &context, QVariantMap properties, const Error &error);

    void trackUserAction(const QString &action, const QString &screen, QVariantMap properties);

private:
    std::vector<Receiver> receivers() const;

    mutable std::mutex m_mutex;
    std::weak_ptr<TolvaneAnalyticsDelegate> m_delegate;
    std::vector<std::weak_ptr<TolvaneAnalyticsDelegate>> m_observers;
    std::atomic<bool> m_isEnabled = true;
    const QString m_sdkVersion;
};

} // namespace tolvane
