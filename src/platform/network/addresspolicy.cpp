// SPDX-License-Identifier: MIT
#include "platform/network/addresspolicy.h"

#include <QtCore/QtEndian>
#include <QtNetwork/QHostInfo>

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

/// From where an address can be reached; the later, the nearer.
enum class Reach { anywhere, network, device };

struct Block
{
    const char *subnet;
    Reach reach;
};

// IANA's registries of special-purpose addresses. Multicast and reserved addresses are no servers.
constexpr std::array blocks = {
    Block{"0.0.0.0/8", Reach::device},      Block{"127.0.0.0/8", Reach::device},
    Block{"::/127", Reach::device},         Block{"10.0.0.0/8", Reach::network},
    Block{"100.64.0.0/10", Reach::network}, Block{"169.254.0.0/16", Reach::network},
    Block{"172.16.0.0/12", Reach::network}, Block{"192.168.0.0/16", Reach::network},
    Block{"198.18.0.0/15", Reach::network}, Block{"224.0.0.0/3", Reach::network},
    Block{"fc00::/7", Reach::network},      Block{"fe80::/10", Reach::network},
    Block{"fec0::/10", Reach::network},     Block{"ff00::/8", Reach::network},
};

/// An IPv6 address that stands for one of IPv4 as that address.
QHostAddress withoutTranslation(const QHostAddress &address)
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
    const QHostAddress plain = withoutTranslation(address);
    for (const Block &block : blocks) {
        if (plain.isInSubnet(QHostAddress::parseSubnet(QString::fromLatin1(block.subnet))))
            return block.reach;
    }
    return Reach::anywhere;
}

} // namespace

bool mayReach(const Addresses &target, const Addresses &backend)
{
    // Each address of the target may be used, so each counts; and so does each of the backend.
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
