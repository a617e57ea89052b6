// SPDX-License-Identifier: MIT
#pragma once

#include "testing/waitfor.h"

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QUrl>
#include <QtWebSockets/QWebSocket>

namespace tolvane::test {

using namespace Qt::StringLiterals;

inline QString quoted(const QString &text)
{
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.sliced(1, list.size() - 2));
}

inline bool isTruthy(const QJsonValue &value)
{
    return !value.isUndefined() && !value.isNull() && value != QJsonValue(false) &&
           value != QJsonValue(u""_s) && value != QJsonValue(0);
}

inline QList<QByteArray> linesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().split('\n')
                                          : QList<QByteArray>();
}

/// Headless Chromium with one page, controlled over the DevTools protocol. CSS selectors name the
/// elements. Each operation runs the event loop until its condition holds, and throws a
/// std::runtime_error after a timeout.
class Browser
{
public:
    /// Keeps the profile in the folder, which must exist.
    explicit Browser(const QString &folder)
    {
        QObject::connect(
            &m_socket, &QWebSocket::textMessageReceived, &m_socket, [this](const QString &text) {
                const QJsonObject message = QJsonDocument::fromJson(text.toUtf8()).object();
                if (message.contains("id"_L1))
                    m_responses.insert(message["id"_L1].toInt(), message);
            });
        start(folder);
        connectTo(folder + u"/DevToolsActivePort"_s);
        const QJsonObject target = call(u"Target.createTarget"_s, {{u"url"_s, u"about:blank"_s}});
        m_session = call(u"Target.attachToTarget"_s, {{u"targetId"_s, target["targetId"_L1]},
                                                      {u"flatten"_s, true}})["sessionId"_L1]
                        .toString();
    }

    ~Browser()
    {
        constexpr int timeout = 10'000;
        m_session.clear();
        m_socket.sendTextMessage(uR"({"id":0,"method":"Browser.close"})"_s);
        m_socket.flush();
        if (!m_process.waitForFinished(timeout))
            m_process.kill();
        m_process.waitForFinished(timeout);
    }

    void open(const QUrl &page) { call(u"Page.navigate"_s, {{u"url"_s, page.toString()}}); }

    /// Waits until a JavaScript expression is truthy, and returns its value.
    QJsonValue await(const QString &expression)
    {
        QJsonValue value;
        waitFor(expression, [&] {
            value = evaluate(expression);
            return isTruthy(value);
        });
        return value;
    }

    /// Waits until the element exists and is enabled, and clicks it.
    void click(const QString &selector)
    {
        await(
            u"(element => element && !element.disabled && (element.focus(), element.click(), true))"
            "(document.querySelector(%1))"_s.arg(quoted(selector)));
    }

    void type(const QString &text) { call(u"Input.insertText"_s, {{u"text"_s, text}}); }

    void choose(const QString &fileInput, const QStringList &files)
    {
        const QJsonObject document = call(u"DOM.getDocument"_s);
        const QJsonObject node =
            call(u"DOM.querySelector"_s,
                 {{u"nodeId"_s, document["root"_L1]["nodeId"_L1]}, {u"selector"_s, fileInput}});
        call(u"DOM.setFileInputFiles"_s,
             {{u"nodeId"_s, node["nodeId"_L1]}, {u"files"_s, QJsonArray::fromStringList(files)}});
    }

private:
    void start(const QString &folder)
    {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.setStandardOutputFile(folder + u"/output"_s);
        m_process.start(u"chromium"_s,
                        {u"--headless=new"_s, u"--no-sandbox"_s, u"--disable-gpu"_s,
                         u"--disable-dev-shm-usage"_s, u"--disable-quic"_s, u"--no-first-run"_s,
                         u"--disable-background-networking"_s, u"--disable-component-update"_s,
                         u"--disable-sync"_s, u"--window-size=1280,900"_s,
                         u"--remote-debugging-port=0"_s, u"--user-data-dir="_s + folder});
        if (!m_process.waitForStarted())
            throw std::runtime_error("chromium: " + m_process.errorString().toStdString());
    }

    void connectTo(const QString &portFile)
    {
        QList<QByteArray> lines;
        waitFor(u"Chromium's port"_s, [&] {
            lines = linesOf(portFile);
            return lines.size() == 2;
        });
        m_socket.open(QUrl(u"ws://127.0.0.1:"_s + QString::fromLatin1(lines[0] + lines[1])));
        waitFor(u"a connection to Chromium"_s,
                [&] { return m_socket.state() == QAbstractSocket::ConnectedState; });
    }

    QJsonObject call(const QString &method, const QJsonObject &parameters = {})
    {
        const int id = ++m_lastId;
        QJsonObject message{{u"id"_s, id}, {u"method"_s, method}, {u"params"_s, parameters}};
        if (!m_session.isEmpty())
            message.insert(u"sessionId"_s, m_session);
        m_socket.sendTextMessage(
            QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));
        waitFor(method, [&] { return m_responses.contains(id); });
        const QJsonObject response = m_responses.take(id);
        if (response.contains("error"_L1))
            throw std::runtime_error(
                (method + u": "_s + response["error"_L1]["message"_L1].toString()).toStdString());
        return response["result"_L1].toObject();
    }

    // An exception means that the page is not ready yet.
    QJsonValue evaluate(const QString &expression)
    {
        const QJsonObject response = call(
            u"Runtime.evaluate"_s,
            {{u"expression"_s, expression}, {u"awaitPromise"_s, true}, {u"returnByValue"_s, true}});
        return response.contains("exceptionDetails"_L1) ? QJsonValue()
                                                        : response["result"_L1]["value"_L1];
    }

    QProcess m_process;
    QWebSocket m_socket;
    QString m_session;
    QHash<int, QJsonObject> m_responses;
    int m_lastId = 0;
};

} // namespace tolvane::test
