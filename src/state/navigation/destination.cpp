// SPDX-License-Identifier: MIT
#include "state/navigation/destination.h"

#include <array>

namespace tolvane {

namespace {

// Indexed by Kind.
constexpr std::array kindNames = {"ticket", "imageViewer", "newTicket"};

std::size_t payloadHash(std::monostate)
{
    return 0;
}

template <typename T>
std::size_t payloadHash(const T &payload)
{
    return qHash(payload, 0);
}

} // namespace

TolvaneDestination::TolvaneDestination(Payload payload)
    : m_payload(std::move(payload))
{
}

TolvaneDestination TolvaneDestination::ticket(const TicketPreviewDto &preview)
{
    return TolvaneDestination(Payload(preview));
}

TolvaneDestination TolvaneDestination::imageViewer(const QUrl &url)
{
    return TolvaneDestination(Payload(url));
}

TolvaneDestination TolvaneDestination::newTicket()
{
    return {};
}

QString TolvaneDestination::kindName() const
{
    return QString::fromLatin1(kindNames.at(m_payload.index()));
}

QString TolvaneDestination::ticketId() const
{
    return preview() ? preview()->id : QString();
}

QUrl TolvaneDestination::imageUrl() const
{
    const QUrl *url = std::get_if<QUrl>(&m_payload);
    return url ? *url : QUrl();
}

std::size_t qHash(const TolvaneDestination &destination, std::size_t seed) noexcept
{
    const std::size_t payload =
        std::visit([](const auto &value) { return payloadHash(value); }, destination.m_payload);
    return qHashMulti(seed, destination.m_payload.index(), payload);
}

} // namespace tolvane
