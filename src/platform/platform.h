// SPDX-License-Identifier: MIT
#pragma once

#include "base/mainthread.h"
#include "base/privateexport.h"
#include "platform/async/clock.h"
#include "platform/async/executor.h"
#include "platform/async/notificationcenter.h"
#include "platform/network/urlcache.h"
#include "platform/network/urlsession.h"
#include "platform/system/preferences.h"
#include "platform/system/services.h"

#include <functional>
#include <memory>
#include <optional>

namespace tolvane {

/// The services that the library stands on. Nothing else in it reads a clock, opens a socket,
/// touches a file or asks the device anything.
struct Platform
{
    std::unique_ptr<Executor> mainThread;
    std::unique_ptr<Executor> workers;
    /// A pool of its own: a screen full of photos must not hold up what the customer reads.
    std::unique_ptr<Executor> pictureWorkers;
    std::unique_ptr<Executor> pollingThread;
    std::unique_ptr<NotificationCenter> notificationCenter;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<UrlSession> urlSession;
    std::unique_ptr<Device> device;
    std::unique_ptr<Bundle> bundle;

    /// The platform's log for a subsystem and a category within it.
    std::function<std::unique_ptr<LogSink>(const QString &subsystem, const QString &category)>
        makeLogSink;

    /// A cache of responses.
    std::function<std::unique_ptr<UrlCache>(const UrlCache::Settings &settings)> makeUrlCache;

    /// A variable of the process environment, read anew at each call.
    std::function<std::optional<QString>(const char *name)> environmentVariable;

    /// Shows the messenger over the root view of the host's foreground window, if there is one.
    std::function<void()> present;
};

/// A platform with the production services.
TOLVANE_AUTOTEST_EXPORT Platform makeProductionPlatform();

/// The platform of this process: the production services, made at first use, unless another was
/// installed before. Safe from any thread.
TOLVANE_PRIVATE_EXPORT Platform &platform();

/// Puts another platform in place and gives back the one before. Only while nothing runs on it.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<Platform>
    TOLVANE_AUTOTEST_EXPORT exchangePlatform(std::unique_ptr<Platform> replacement);

} // namespace tolvane
