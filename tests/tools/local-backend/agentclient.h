// SPDX-License-Identifier: MIT
#pragma once

#include "runningbackend.h"

/// A client that sends requests like the agents' page.
struct Agent : Customer
{
    explicit Agent(const RunningBackend &backend)
        : Customer(backend.port())
    {
        headers = {{"X-Tolvane-Agent", "1"},
                   {"Content-Type", "multipart/form-data; boundary=edge"},
                   {"Host", "127.0.0.1:" + std::to_string(backend.port())}};
    }
    httplib::Response post(const std::string &path, const std::string &body)
    {
        return send("POST", "/agent/api/" + path, body);
    }
    QJsonDocument read(const std::string &path) { return json(get("/agent/api/" + path)); }
};

inline std::string idIn(const std::string &ticketPath)
{
    return ticketPath.substr(ticketPath.rfind('/') + 1);
}

inline std::string compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}
