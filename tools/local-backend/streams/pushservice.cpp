// SPDX-License-Identifier: MIT
#include "streams/pushservice.h"

#include "base/errors.h"
#include "base/recordjson.h"
#include "base/text.h"

#include <algorithm>

namespace tolvane::backend {

namespace {

constexpr std::size_t maxBacklog = 100;
constexpr std::size_t maxDevices = 256;
constexpr std::size_t maxPushSize = 16'384;

// Each stream occupies a connection of the server; most of them must stay free for requests.
constexpr std::size_t maxStreams = 32;

} // namespace

// Hosts remember numbers across restarts of the backend, so that numbers must increase from one run
// to the next: they start at the current time in milliseconds, which is ahead of any count.
PushService::PushService()
    : m_lastNumber(static_cast<std::uint64_t>(now()))
{
}

bool PushService::send(const std::string &token, Push push)
{
    if (token.size() + toText(toJson(push, {})).size() > maxPushSize)
        return false;
    Device &device = deviceOf(token);
    device.backlog.push_back({++m_lastNumber, std::move(push)});
    if (device.backlog.size() > maxBacklog)
        device.backlog.pop_front();
    for (PushStream *stream : device.streams)
        stream->wake();
    return true;
}

PushService::Device &PushService::deviceOf(const std::string &token)
{
    const auto known = m_devices.find(token);
    if (known != m_devices.end())
        return known->second;
    if (m_devices.size() >= maxDevices)
        removeOldestDevice();
    return m_devices[token];
}

// Removes the device with the oldest push among those without a stream. There is one, because fewer
// streams than devices are allowed.
void PushService::removeOldestDevice()
{
    const auto rank = [](const auto &entry) {
        const Device &device = entry.second;
        return std::pair(!device.streams.empty(),
                         device.backlog.empty() ? 0 : device.backlog.back().number);
    };
    m_devices.erase(std::min_element(
        m_devices.begin(), m_devices.end(),
        [&rank](const auto &left, const auto &right) { return rank(left) < rank(right); }));
}

PushStream::PushStream(PushService &service, std::string token, std::optional<std::uint64_t> last,
                       std::string baseUrl)
    : m_service(service)
    , m_token(std::move(token))
    , m_baseUrl(std::move(baseUrl))
{
    if (m_service.m_streamCount >= maxStreams)
        throw HttpError(503, "too many push streams are open");
    ++m_service.m_streamCount;
    PushService::Device &device = m_service.deviceOf(m_token);
    device.streams.insert(this);
    // With a number from the future, the stream would skip all pushes up to it.
    m_delivered = std::min(last.value_or(device.delivered), m_service.m_lastNumber);
}

PushStream::~PushStream()
{
    --m_service.m_streamCount;
    m_service.deviceOf(m_token).streams.erase(this);
}

std::string PushStream::next()
{
    PushService::Device &device = m_service.deviceOf(m_token);
    m_delivered = std::max(m_delivered, m_sent);
    device.delivered = std::max(device.delivered, m_sent);
    const auto push = std::ranges::upper_bound(device.backlog, m_delivered, {},
                                               &PushService::NumberedPush::number);
    if (push == device.backlog.end())
        return {};
    m_sent = push->number;
    return "id: " + std::to_string(m_sent) + "\ndata: " + toText(toJson(push->push, m_baseUrl)) +
           "\n\n";
}

} // namespace tolvane::backend
