// SPDX-License-Identifier: MIT
#pragma once

#include "testing/scriptedserver.h"

#include <array>

namespace tolvane::test {

/// A fault that the proxy applies to one request.
struct Fault
{
    const char *name;
    /// Whether the request reaches the backend. Otherwise `respond` gets an empty response.
    bool reachesBackend;
    /// Writes to the host in place of the backend's complete response.
    void (*respond)(QTcpSocket &host, const QByteArray &response);
};

namespace faults {

extern const Fault none;
/// The connection breaks before the backend gets the request, after it has responded, or in the
/// middle of the response.
extern const Fault reset;
extern const Fault resetAfterRequest;
extern const Fault truncated;
/// The host gets no more data, on an open connection: from the start, or in the middle of the
/// response.
extern const Fault stalled;
extern const Fault stalledMidBody;
/// The response arrives in small pieces, 25 ms apart.
extern const Fault trickled;
/// The response arrives twice on one connection.
extern const Fault duplicated;
/// The response arrives 700 ms late, after the responses to later requests.
extern const Fault delayed;
/// A gateway responds in place of the backend: before or after the backend handles the request.
extern const Fault unavailable;
extern const Fault badGateway;
/// The response is not HTTP, not JSON, or JSON of another type.
extern const Fault notHttp;
extern const Fault invalidJson;
extern const Fault nullBody;

/// All but `none`.
extern const std::array<const Fault *, 13> all;

} // namespace faults

/// A proxy on loopback between a host and a backend. Forwards complete requests and responses, or
/// applies a fault to them.
class FaultProxy
{
public:
    explicit FaultProxy(quint16 backendPort);

    QString url(const QString &path) const { return m_server.url(path); }
    void setBackend(quint16 port) { m_backendPort = port; }

    /// Chooses the fault for each request. Without a function there are no faults.
    std::function<const Fault &(const ServedRequest &)> chooseFault;

    /// Requests so far.
    const QList<ServedRequest> &requests() const { return m_server.requests; }
    void clearRequests() { m_server.requests.clear(); }

    /// While true, every connection is reset, including open ones.
    void setOffline(bool isOffline);

private:
    void pass(const ServedRequest &request, QTcpSocket &host, const Fault &fault);

    ScriptedServer m_server;
    quint16 m_backendPort;
    bool m_isOffline = false;
};

} // namespace tolvane::test
