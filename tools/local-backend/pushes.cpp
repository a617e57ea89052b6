// SPDX-License-Identifier: MIT
#include "pushes.h"

#include "errors.h"
#include "text.h"

#include <algorithm>

namespace tolvane::backend {

namespace {

constexpr std::size_t longestBacklog = 100;
constexpr std::size_t mostDevices = 256;
constexpr std::size_t heaviest = 16'384;

// Each stream occupies a worker thread of the server; most of them must stay free for requests.
constexpr std::size_t mostStreams = 32;

std::size_t weightOf(const Message &message)
{
    std::size_t weight = message.content.size();
    for (const std::string &attachment : message.attachments)
        weight += attachment.size();
    return weight;
}

std::size_t weightOf(const Preview &preview)
{
    return weightOf(preview.lastMessage);
}

std::size_t weightOf(const HandmadePush &push)
{
    return push.payload.size();
}

} // namespace

// Hosts remember numbers across restarts of the backend, so that numbers must increase from one run
// to the next: they start at the current time in milliseconds, which is ahead of any count.
Pushes::Pushes()
    : m_lastNumber(static_cast<std::uint64_t>(now()))
{
}

bool Pushes::send(const std::string &token, Push push)
{
    const auto weight = std::visit([](const auto &record) { return weightOf(record); }, push);
    if (token.size() + weight > heaviest)
        return false;
    const std::lock_guard lock(m_mutex);
    Device &device = deviceOf(token);
    device.backlog.push_back({++m_lastNumber, std::move(push)});
    if (device.backlog.size() > longestBacklog)
        device.backlog.pop_front();
    for (const PushStream *stream : device.streams)
        stream->m_news.add();
    return true;
}

Pushes::Device &Pushes::deviceOf(const std::string &token)
{
    const auto known = m_devices.find(token);
    if (known != m_devices.end())
        return known->second;
    if (m_devices.size() >= mostDevices)
        makeRoom();
    return m_devices[token];
}

// Removes the device with the oldest push among those without a stream. There is one, because fewer
// streams than devices are allowed.
void Pushes::makeRoom()
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

PushStream::PushStream(Pushes &pushes, std::string token, std::optional<std::uint64_t> last)
    : m_pushes(pushes)
    , m_token(std::move(token))
{
    const std::lock_guard lock(m_pushes.m_mutex);
    if (m_pushes.m_streamCount >= mostStreams)
        throw Refusal(503, "too many push streams are open");
    ++m_pushes.m_streamCount;
    Pushes::Device &device = m_pushes.deviceOf(m_token);
    device.streams.insert(this);
    // With a number from the future, the stream would skip all pushes up to it.
    m_last = std::min(last.value_or(device.delivered), m_pushes.m_lastNumber);
}

PushStream::~PushStream()
{
    const std::lock_guard lock(m_pushes.m_mutex);
    --m_pushes.m_streamCount;
    m_pushes.deviceOf(m_token).streams.erase(this);
}

std::optional<NumberedPush> PushStream::next() const
{
    const std::lock_guard lock(m_pushes.m_mutex);
    const auto &backlog = m_pushes.deviceOf(m_token).backlog;
    const auto found = std::upper_bound(
        backlog.begin(), backlog.end(), m_last,
        [](std::uint64_t number, const auto &push) { return number < push.number; });
    return found == backlog.end() ? std::nullopt : std::optional(*found);
}

void PushStream::confirm(std::uint64_t number)
{
    const std::lock_guard lock(m_pushes.m_mutex);
    m_last = number;
    std::uint64_t &delivered = m_pushes.deviceOf(m_token).delivered;
    delivered = std::max(delivered, number);
}

} // namespace tolvane::backend
