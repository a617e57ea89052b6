// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"
#include "http/wakeup.h"

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <set>

namespace tolvane::backend {

class PushStream;

struct NumberedPush
{
    std::uint64_t number = 0;
    Push push;
};

/// Replaces the platform's push service: keeps the newest pushes of each device for the hosts that
/// listen. Thread-safe.
class PushService
{
public:
    PushService();

    /// Returns false for a push that is too large, and drops it like a push service.
    bool send(const std::string &token, Push push);

private:
    friend PushStream;

    struct Device
    {
        std::deque<NumberedPush> backlog;
        /// The number of the last push that any stream has confirmed.
        std::uint64_t delivered = 0;
        std::set<PushStream *> streams;
    };

    Device &deviceOf(const std::string &token);
    void removeOldestDevice();

    std::mutex m_mutex;
    std::map<std::string, Device> m_devices;
    std::size_t m_streamCount = 0;
    std::uint64_t m_lastNumber;
};

/// A host's connection to the pushes of a device.
class PushStream
{
public:
    /// Begins after the push with the number `last`; without it, after the last push that any
    /// stream has confirmed. Throws an HttpError when too many streams are open.
    PushStream(PushService &service, std::string token, std::optional<std::uint64_t> last);
    PushStream(const PushStream &) = delete;
    PushStream &operator=(const PushStream &) = delete;
    ~PushStream();

    /// Released once for each new push.
    const Wakeup &wakeup() const { return m_wakeup; }
    /// The first push that is not confirmed.
    std::optional<NumberedPush> next() const;
    void confirm(std::uint64_t number);

private:
    friend PushService;

    PushService &m_service;
    const std::string m_token;
    std::uint64_t m_last = 0;
    Wakeup m_wakeup;
};

} // namespace tolvane::backend
