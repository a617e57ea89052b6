// SPDX-License-Identifier: MIT
#pragma once

#include "base/mainthread.h"
#include "base/privateexport.h"
#include "platform/async/clock.h"
#include "platform/async/executor.h"
#include "platform/async/notificationcenter.h"
#include "platform/network/urlcache.h"
#include "platform/network/urlsession.h"
#include "platform/system/bundle.h"
#include "platform/system/device.h"
#include "platform/system/logsink.h"
#include "platform/system/preferences.h"

#include <functional>
#include <memory>
#include <optional>

namespace tolvane {

/// The services that the library uses. No other code reads a clock, opens a socket, accesses a file
/// or queries the device.
struct Platform
{
    std::unique_ptr<Executor> mainThread;
    std::unique_ptr<Executor> workers;
    /// A separate pool: a screen full of photos must not delay the decoding of conversations.
    std::unique_ptr<Executor> pictureWorkers;
    std::unique_ptr<Executor> pollingThread;
    std::unique_ptr<NotificationCenter> notificationCenter;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<UrlSession> urlSession;
    std::unique_ptr<Device> device;
    std::unique_ptr<Bundle> bundle;

    /// Creates a log sink for a subsystem and a category within it.
    std::function<std::unique_ptr<LogSink>(const QString &subsystem, const QString &category)>
        makeLogSink;

    /// Creates a cache of responses.
    std::function<std::unique_ptr<UrlCache>(const UrlCache::Settings &settings)> makeUrlCache;

    /// Reads a variable of the process environment at each call.
    std::function<std::optional<QString>(const char *name)> environmentVariable;

    /// Shows the messenger over the root view of the host's foreground window, if there is one.
    std::function<void()> present;
    /// Closes the messenger, animated; no effect if it is closed.
    std::function<void()> dismiss;
};

/// Creates a platform with the production services.
TOLVANE_AUTOTEST_EXPORT Platform makeProductionPlatform();

/// The platform of this process. Creates the production services at first use, unless another
/// platform was installed before. Safe from any thread.
TOLVANE_PRIVATE_EXPORT Platform &platform();

/// Installs another platform and returns the previous one. No work may be running on either.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Platform>
exchangePlatform(std::unique_ptr<Platform> replacement);

} // namespace tolvane
