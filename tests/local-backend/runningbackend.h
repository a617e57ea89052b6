// SPDX-License-Identifier: MIT
#pragma once

#include "desk.h"
#include "schema.h"
#include "server.h"
#include "settings.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <httplib.h>
#include <thread>

using Headers = std::map<std::string, std::string>;

/// How long to wait for what has to come, on a machine that is busy with other things.
inline constexpr std::chrono::milliseconds patience = std::chrono::minutes(1);

/// What a form's part is made of, put on the wire as it stands.
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
class RunningBackend
{
public:
    explicit RunningBackend(const std::string &database = tolvane::backend::inMemory,
                            std::chrono::milliseconds replyDelay = std::chrono::hours(1),
                            const std::vector<std::string> &keys = {})
        : m_store(tolvane::backend::openDatabase(database))
        , m_desk(m_store, {replyDelay, {}})
        , m_server({"127.0.0.1", 0, keys, std::size_t(1) << 20},
                   tolvane::backend::loadSettings({}, {}), m_store, m_desk)
    {
        m_server.bind();
        m_thread = std::thread([this] { m_server.run(); });
    }
    ~RunningBackend()
    {
        m_server.shutDown();
        m_thread.join();
    }

    int port() const { return QUrl(QString::fromStdString(m_server.baseUrl())).port(); }

private:
    tolvane::backend::Store m_store;
    tolvane::backend::Desk m_desk;
    tolvane::backend::Server m_server;
    std::thread m_thread;
};

/// A customer's connection. Answers have the status -1 when there are none.
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
        client.set_read_timeout(patience);
    }

    /// An empty header is left out.
    httplib::Response send(const std::string &method, const std::string &path,
                           const std::string &body = {}, Headers special = {})
    {
        special.insert(headers.begin(), headers.end());
        httplib::Request request;
        request.method = method;
        request.path = path;
        request.body = body;
        for (const auto &[name, value] : special) {
            if (!value.empty())
                request.headers.emplace(name, value);
        }
        const httplib::Result result = client.send(request);
        return result ? result.value() : httplib::Response();
    }
    httplib::Response get(const std::string &path) { return send("GET", path); }
    QJsonArray tickets() { return json(get("/api/tickets")).array(); }
    httplib::Response write(const std::string &path, const std::string &text)
    {
        return send("POST", path, multipart({{"message", text}}));
    }
    /// The path of a new ticket.
    std::string open(const std::string &text = "hello")
    {
        const QJsonDocument ticket = json(write("/api/ticket/create", text));
        return "/api/ticket/" + ticket[QLatin1String("id")].toString().toStdString();
    }

    httplib::Client client;
    Headers headers;
};
