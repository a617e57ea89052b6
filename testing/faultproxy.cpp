// SPDX-License-Identifier: MIT
#include "testing/faultproxy.h"

#include <QtCore/QTimer>
#include <QtNetwork/QTcpSocket>

#include <chrono>

namespace tolvane::test {

namespace {

using namespace std::chrono_literals;

void writeInPieces(QTcpSocket &host, const QByteArray &rest)
{
    const qsizetype size = std::max<qsizetype>(rest.size() / 8, 64);
    host.write(rest.left(size));
    if (rest.size() > size)
        QTimer::singleShot(25ms, &host,
                           [&host, rest, size] { writeInPieces(host, rest.mid(size)); });
}

void writeWithBody(QTcpSocket &host, const QByteArray &response, const QByteArray &body)
{
    const int status = response.split(' ').value(1).toInt();
    host.write(ScriptedServer::response(status, body, {"Content-Type: application/json"}));
}

QByteArray bodyOf(const QByteArray &response)
{
    return response.mid(response.indexOf("\r\n\r\n") + 4);
}

void writeHalf(QTcpSocket &host, const QByteArray &response)
{
    host.write(response.left(response.size() - bodyOf(response).size() / 2));
}

/// Removes the header that would close the connection to the host.
QByteArray keptAlive(QByteArray response)
{
    return response.replace("Connection: close\r\n", "");
}

QByteArray serialized(const ServedRequest &request)
{
    QByteArray text = request.method + ' ' + request.target + " HTTP/1.1\r\n";
    for (const auto &[name, value] : request.headers) {
        if (name != "connection")
            text += name + ": " + value + "\r\n";
    }
    return text + "Connection: close\r\n\r\n" + request.body;
}

} // namespace

namespace faults {

const Fault none = {"none", true,
                    [](QTcpSocket &host, const QByteArray &response) { host.write(response); }};
const Fault reset = {"reset", false,
                     [](QTcpSocket &host, const QByteArray &) { ScriptedServer::reset(host); }};
const Fault resetAfterRequest = {"reset after request", true, reset.respond};
const Fault truncated = {"truncated", true, [](QTcpSocket &host, const QByteArray &response) {
                             writeHalf(host, response);
                             host.disconnectFromHost();
                         }};
const Fault stalled = {"stalled", false, [](QTcpSocket &, const QByteArray &) {}};
const Fault stalledMidBody = {"stalled mid-body", true, writeHalf};
const Fault trickled = {"trickled", true, writeInPieces};
const Fault duplicated = {"duplicated", true, [](QTcpSocket &host, const QByteArray &response) {
                              host.write(response + response);
                          }};
const Fault delayed = {"delayed", true, [](QTcpSocket &host, const QByteArray &response) {
                           QTimer::singleShot(700ms, &host,
                                              [&host, response] { host.write(response); });
                       }};
const Fault unavailable = {"unavailable", false, [](QTcpSocket &host, const QByteArray &) {
                               host.write(ScriptedServer::response(503, "busy"));
                           }};
const Fault badGateway = {"bad gateway", true, [](QTcpSocket &host, const QByteArray &) {
                              host.write(ScriptedServer::response(502, "<h1>Bad Gateway</h1>"));
                          }};
const Fault notHttp = {"not HTTP", false, [](QTcpSocket &host, const QByteArray &) {
                           host.write("* OK IMAP4rev1 ready\r\n\r\n");
                           host.disconnectFromHost();
                       }};
const Fault invalidJson = {"invalid JSON", true, [](QTcpSocket &host, const QByteArray &response) {
                               writeWithBody(host, response, bodyOf(response).replace(':', '\0'));
                           }};
const Fault nullBody = {"null body", true, [](QTcpSocket &host, const QByteArray &response) {
                            writeWithBody(host, response, "null");
                        }};

const std::array<const Fault *, 13> all = {
    &reset,   &resetAfterRequest, &truncated,  &stalled, &stalledMidBody, &trickled, &duplicated,
    &delayed, &unavailable,       &badGateway, &notHttp, &invalidJson,    &nullBody};

} // namespace faults

FaultProxy::FaultProxy(quint16 backendPort)
    : m_backendPort(backendPort)
{
    m_server.handler = [this](const ServedRequest &request, QTcpSocket &host) {
        const Fault &fault = m_isOffline   ? faults::reset
                             : chooseFault ? chooseFault(request)
                                           : faults::none;
        if (fault.reachesBackend)
            pass(request, host, fault);
        else
            fault.respond(host, {});
    };
}

void FaultProxy::pass(const ServedRequest &request, QTcpSocket &host, const Fault &fault)
{
    auto *backend = new QTcpSocket(&host);
    QObject::connect(backend, &QTcpSocket::disconnected, &host, [backend, &host, &fault] {
        backend->deleteLater();
        fault.respond(host, keptAlive(backend->readAll()));
    });
    QObject::connect(backend, &QTcpSocket::errorOccurred, &host, [backend, &host](auto) {
        // The end of the backend's connection is reported as an error too.
        if (backend->state() == QAbstractSocket::UnconnectedState && backend->bytesAvailable() == 0)
            ScriptedServer::reset(host);
    });
    backend->connectToHost(QHostAddress::LocalHost, m_backendPort);
    backend->write(serialized(request));
}

void FaultProxy::setOffline(bool isOffline)
{
    m_isOffline = isOffline;
    if (!isOffline)
        return;
    for (auto *host : m_server.findChildren<QTcpSocket *>(Qt::FindDirectChildrenOnly))
        ScriptedServer::reset(*host);
}

} // namespace tolvane::test
