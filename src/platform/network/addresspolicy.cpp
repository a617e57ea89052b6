// SPDX-License-Identifier: MIT
#include "platform/network/addresspolicy.h"

#include <QtCore/QtEndian>
#include <QtNetwork/QHostInfo>

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

/// From where an address can be reached, from the farthest to the nearest.
enum class Reach { anywhere, network, device };

struct SpecialSubnet
{
    const char *subnet;
    Reach reach;
};

// From IANA's registries of special-purpose addresses. No server has a multicast or reserved one.
constexpr std::array specialSubnets = {
    SpecialSubnet{"0.0.0.0/8", Reach::device},      SpecialSubnet{"127.0.0.0/8", Reach::device},
    SpecialSubnet{"::/127", Reach::device},         SpecialSubnet{"10.0.0.0/8", Reach::network},
    SpecialSubnet{"100.64.0.0/10", Reach::network}, SpecialSubnet{"169.254.0.0/16", Reach::network},
    SpecialSubnet{"172.16.0.0/12", Reach::network}, SpecialSubnet{"192.168.0.0/16", Reach::network},
    SpecialSubnet{"198.18.0.0/15", Reach::network}, SpecialSubnet{"224.0.0.0/3", Reach::network},
    SpecialSubnet{"fc00::/7", Reach::network},      SpecialSubnet{"fe80::/10", Reach::network},
    SpecialSubnet{"fec0::/10", Reach::network},     SpecialSubnet{"ff00::/8", Reach::network},
};

/// Converts an IPv6 address that maps an IPv4 address into that one.
QHostAddress unmapped(const QHostAddress &address)
{
    if (address.protocol() != QAbstractSocket::IPv6Protocol)
        return address;
    const Q_IPV6ADDR bytes = address.toIPv6Address();
    const bool isMapped = address.isInSubnet(QHostAddress(QStringLiteral("::ffff:0:0")), 96) ||
                          address.isInSubnet(QHostAddress(QStringLiteral("64:ff9b::")), 96);
    return isMapped ? QHostAddress(qFromBigEndian<quint32>(bytes.c + 12)) : address;
}

Reach reachOf(const QHostAddress &address)
{
    const QHostAddress plain = unmapped(address);
    for (const SpecialSubnet &special : specialSubnets) {
        if (plain.isInSubnet(QHostAddress::parseSubnet(QString::fromLatin1(special.subnet))))
            return special.reach;
    }
    return Reach::anywhere;
}

} // namespace

bool mayReach(const Addresses &target, const Addresses &backend)
{
    // A connection may use any address of a host, so the most restrictive combination decides.
    const auto nearest = [](const Addresses &addresses) {
        return std::ranges::max(addresses, {}, reachOf);
    };
    const auto farthest = [](const Addresses &addresses) {
        return std::ranges::min(addresses, {}, reachOf);
    };
    if (target.isEmpty() || reachOf(nearest(target)) == Reach::anywhere)
        return true;
    return !backend.isEmpty() && reachOf(nearest(target)) <= reachOf(farthest(backend));
}

void findAddresses(const QString &host, QObject *context,
                   const std::function<void(const Addresses &)> &found)
{
    if (const QHostAddress address(host); !address.isNull())
        return found({address});
#ifndef __clang_analyzer__ // It reports a leak in Qt's header: Qt frees the slot elsewhere.
    QHostInfo::lookupHost(host, context,
                          [found](const QHostInfo &info) { found(info.addresses()); });
#endif
}

} // namespace tolvane
