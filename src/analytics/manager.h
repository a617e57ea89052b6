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

/// The one place through which all events go: adds their context, logs them and hands them to the
/// host's delegate and the observers, on the caller's thread. An event without any is gone.
class TOLVANE_PRIVATE_EXPORT TolvaneAnalyticsManager
{
public:
    static TolvaneAnalyticsManager &shared();

    TolvaneAnalyticsManager();

    using Receiver = std::shared_ptr<TolvaneAnalyticsDelegate>;

    void setDelegate(const Receiver &delegate);
    /// Hears of each event after the host's delegate, and whether or not there is one. Held weakly.
    void addObserver(const Receiver &observer);
    void setEnabled(bool enabled) { m_isEnabled = enabled; }

    void track(const QString &name, QVariantMap properties);

    /// @param context what was being done, such as "fetchTicket"; empty to leave it out
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
