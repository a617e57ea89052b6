// SPDX-License-Identifier: MIT
#pragma once

#include "api/backend.h"
#include "data/schema.h"
#include "server.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <httplib.h>
#include <thread>

using Headers = std::map<std::string, std::string>;

/// The timeout in milliseconds for conditions, which is long enough for a busy machine.
inline constexpr int timeout = 60'000;

struct FormPart
{
    std::string name;
    std::string content;
    std::string fileName = {};
};

/// A multipart body with the boundary "edge", which ends with its closing delimiter.
inline std::string multipart(const std::vector<FormPart> &parts)
{
    std::string body;
    for (const FormPart &part : parts) {
        body += "--edge\r\nContent-Disposition: form-data; name=\"" + part.name + '"';
        if (!part.fileName.empty())
            body += "; filename=\"" + part.fileName + "\"\r\nContent-Type: image/png";
        body += "\r\n\r\n" + part.content + "\r\n";
    }
    return body + "--edge--";
}

inline QJsonDocument json(const httplib::Response &response)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(response.body));
}

/// A backend in this process on a port that the system picks.
struct RunningBackend : tolvane::backend::Backend
{
    explicit RunningBackend(const std::vector<std::string> &keys = {})
        : Backend(tolvane::backend::openDatabase(tolvane::backend::inMemory), std::chrono::hours(1),
                  {})
        , server({"127.0.0.1", 0, keys, 1 << 20}, *this)
    {
        server.bind();
        thread = std::jthread([this] { server.run(); });
    }
    ~RunningBackend() { server.shutDown(); }
    int port() const { return QUrl(QString::fromStdString(server.baseUrl())).port(); }

    tolvane::backend::Server server;
    std::jthread thread;
};

/// A customer's HTTP client. Its responses have the status -1 when there is no response.
struct Customer
{
    explicit Customer(int port, const std::string &id = "ada")
        : client("127.0.0.1", port)
        , headers{{"X-Tolvane-Customer", id},
                  {"Authorization", "Bearer second"},
                  {"Content-Type", "multipart/form-data; boundary=edge"}}
    {
        client.set_keep_alive(true);
        client.set_url_encode(false);
        client.set_read_timeout(std::chrono::milliseconds(timeout));
    }
    httplib::Response send(const std::string &method, const std::string &path,
                           const std::string &body = {}, Headers special = {})
    {
        special.insert(headers.begin(), headers.end());
        // An empty header is left out.
        std::erase_if(special, [](const auto &header) { return header.second.empty(); });
        httplib::Request request;
        request.method = method;
        request.path = path;
        request.body = body;
        request.headers.insert(special.begin(), special.end());
        const httplib::Result result = client.send(request);
        return result ? result.value() : httplib::Response();
    }
    httplib::Response get(const std::string &path) { return send("GET", path); }
    QJsonArray tickets() { return json(get("/api/tickets")).array(); }
    httplib::Response write(const std::string &path, const std::string &text)
    {
        return send("POST", path, multipart({{"message", text}}));
    }
    /// Creates a ticket. Returns its path.
    std::string open()
    {
        const QJsonDocument ticket = json(write("/api/ticket/create", "hello"));
        return "/api/ticket/" + ticket[QLatin1String("id")].toString().toStdString();
    }

    httplib::Client client;
    Headers headers;
};
