// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"
#include "http/eventstream.h"

#include <cstdint>
#include <deque>
#include <map>
#include <set>

namespace tolvane::backend {

class PushStream;

/// Replaces the platform's push service: keeps the newest pushes of each device for the hosts that
/// listen.
class PushService
{
public:
    PushService();

    /// Returns false for a push that is too large, and drops it like a push service.
    bool send(const std::string &token, Push push);

private:
    friend PushStream;

    struct NumberedPush
    {
        std::uint64_t number = 0;
        Push push;
    };

    struct Device
    {
        std::deque<NumberedPush> backlog;
        /// The number of the last push that any stream has delivered.
        std::uint64_t delivered = 0;
        std::set<PushStream *> streams;
    };

    Device &deviceOf(const std::string &token);
    void removeOldestDevice();

    std::map<std::string, Device> m_devices;
    std::size_t m_streamCount = 0;
    std::uint64_t m_lastNumber;
};

/// A host's connection to the pushes of a device.
class PushStream final : public EventStream
{
public:
    /// Begins after the push with the number `last`; without it, after the last push that any
    /// stream has delivered. Throws an HttpError when too many streams are open.
    PushStream(PushService &service, std::string token, std::optional<std::uint64_t> last,
               std::string baseUrl);
    ~PushStream() override;

    /// The first push that is not delivered.
    std::string next() override;

private:
    PushService &m_service;
    const std::string m_token;
    const std::string m_baseUrl;
    std::uint64_t m_delivered = 0;
    std::uint64_t m_sent = 0;
};

} // namespace tolvane::backend
