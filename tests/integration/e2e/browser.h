// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QProcess>
#include <QtCore/QUrl>
#include <QtWebSockets/QWebSocket>

namespace tolvane::test {

/// Headless Chromium with one page, controlled over the DevTools protocol. CSS selectors name the
/// elements. Each operation runs the event loop until its condition holds, and throws a
/// std::runtime_error after a timeout.
class Browser
{
public:
    /// Keeps the profile in the folder, which must exist.
    explicit Browser(const QString &folder);
    ~Browser();
    Browser(const Browser &) = delete;
    Browser &operator=(const Browser &) = delete;

    void open(const QUrl &page);
    /// Waits until a JavaScript expression is truthy, and returns its value.
    QJsonValue await(const QString &expression);
    /// Waits until the element exists and is enabled, and clicks it.
    void click(const QString &selector);
    void type(const QString &text);
    void choose(const QString &fileInput, const QStringList &files);

private:
    void start(const QString &folder);
    void connectTo(const QString &portFile);
    QJsonObject call(const QString &method, const QJsonObject &parameters = {});
    QJsonValue evaluate(const QString &expression);

    QProcess m_process;
    QWebSocket m_socket;
    QString m_session;
    QHash<int, QJsonObject> m_answers;
    int m_lastId = 0;
};

} // namespace tolvane::test
