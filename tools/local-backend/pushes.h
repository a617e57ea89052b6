// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "records.h"

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

/// Stands in for the platform's push service: keeps what is pushed to a device until a host that
/// listens for the device has it, and a little longer. Safe for threads.
class Pushes
{
public:
    Pushes();

    /// False for what is too heavy, which is dropped, as push services do.
    bool send(const std::string &token, Push push);

private:
    friend PushStream;

    struct Device
    {
        std::deque<NumberedPush> backlog;
        /// The last that any stream got.
        std::uint64_t delivered = 0;
        std::set<PushStream *> streams;
    };

    Device &deviceOf(const std::string &token);
    void makeRoom();

    std::mutex m_mutex;
    std::map<std::string, Device> m_devices;
    std::size_t m_streamCount = 0;
    std::uint64_t m_lastNumber;
};

/// What one host hears of a device's pushes, for as long as it listens.
class PushStream
{
public:
    /// Begins behind the push of the number; without one, with what no stream has got so far.
    /// Throws a Refusal when too many listen already.
    PushStream(Pushes &pushes, std::string token, std::optional<std::uint64_t> last);
    PushStream(const PushStream &) = delete;
    PushStream &operator=(const PushStream &) = delete;
    ~PushStream();

    /// Told of each new push.
    const Event &news() const { return m_news; }
    /// The first that is not confirmed.
    std::optional<NumberedPush> next() const;
    void confirm(std::uint64_t number);

private:
    friend Pushes;

    Pushes &m_pushes;
    const std::string m_token;
    std::uint64_t m_last = 0;
    Event m_news;
};

} // namespace tolvane::backend
