// SPDX-License-Identifier: MIT
#pragma once

#include "testing/scriptedserver.h"

#include <array>

namespace tolvane::test {

/// What becomes of one request on its way.
struct Fault
{
    const char *name;
    /// Whether the request gets to the backend. The answer is empty where it doesn't.
    bool reachesBackend;
    /// What the host gets for the backend's whole answer.
    void (*act)(QTcpSocket &host, const QByteArray &answer);
};

namespace faults {

extern const Fault none;
/// The connection breaks: before the request is through, after it, in the middle of the answer.
extern const Fault reset;
extern const Fault resetAfter;
extern const Fault truncated;
/// Nothing comes any more: from the start, in the middle of the answer.
extern const Fault stalled;
extern const Fault stalledHalfWay;
/// The answer comes in small pieces, 25 ms apart.
extern const Fault drip;
/// The answer comes twice on one connection.
extern const Fault doubled;
/// The answer comes 700 ms late, behind those of later requests.
extern const Fault late;
/// Something between answers in the backend's place: before, and after it has done its work.
extern const Fault unavailable;
extern const Fault badGateway;
/// What comes is no HTTP, no JSON, and JSON of another form.
extern const Fault noHttp;
extern const Fault garbled;
extern const Fault null;

/// All but `none`.
extern const std::array<const Fault *, 13> all;

} // namespace faults

/// Stands between a host and a backend on loopback, and passes on whole requests and answers, or
/// has a fault happen to them.
class FaultProxy
{
public:
    explicit FaultProxy(quint16 backendPort);

    QString url(const QString &path) const { return m_server.url(path); }
    void setBackend(quint16 port) { m_backendPort = port; }

    /// Asked about each request. None happens where there is none.
    std::function<const Fault &(const ServedRequest &)> faultFor;

    /// Requests so far.
    const QList<ServedRequest> &requests() const { return m_server.requests; }
    void forgetRequests() { m_server.requests.clear(); }

    /// While true, hosts reach nothing: every connection is reset, open ones as well.
    void setOffline(bool isOffline);

private:
    void pass(const ServedRequest &request, QTcpSocket &host, const Fault &fault);

    ScriptedServer m_server;
    quint16 m_backendPort;
    bool m_isOffline = false;
};

} // namespace tolvane::test
